<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AppLaunchContainer</name>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>MenuPopoverContainer</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>SharedAppSettingsFormView</name>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>Mostrar el icono en la barra de menús</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aspecto</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Tema</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>Reduce motion</source>
        <translation>Reducir el movimiento</translation>
    </message>
    <message>
        <source>Reduce transparency</source>
        <translation>Reducir la transparencia</translation>
    </message>
</context>
</TS>
