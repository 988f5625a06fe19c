<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AppLaunchContainer</name>
    <message>
        <source>Control</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>MenuPopoverContainer</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>SharedAppSettingsFormView</name>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>ログイン時に起動</translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>メニューバーにアイコンを表示</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
    <message>
        <source>Reduce motion</source>
        <translation>動きを減らす</translation>
    </message>
    <message>
        <source>Reduce transparency</source>
        <translation>透明度を下げる</translation>
    </message>
</context>
</TS>
