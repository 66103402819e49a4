<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The program's own texts, and those of the library in the context "Application". -->
<TS version="2.1" language="de_DE">
<context>
    <name>NetworkWindow</name>
    <message>
        <source>Network</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspektor</translation>
    </message>
</context>
<context>
    <name>NetworkModel</name>
    <message>
        <source>Network</source>
        <translation>Netz</translation>
    </message>
</context>
<context>
    <name>Device</name>
    <message>
        <source>An address has no blanks.</source>
        <translation>Eine Adresse hat keine Leerzeichen.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
</TS>
