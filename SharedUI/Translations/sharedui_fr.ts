<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AppLaunchContainer</name>
    <message>
        <source>Control</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
</context>
<context>
    <name>MenuPopoverContainer</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>SharedAppSettingsFormView</name>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>Afficher l’icône dans la barre des menus</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Reduce motion</source>
        <translation>Réduire les animations</translation>
    </message>
    <message>
        <source>Reduce transparency</source>
        <translation>Réduire la transparence</translation>
    </message>
</context>
</TS>
