<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of descriptions are in the context "Application"; they are kept by hand. -->
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <source>%1 found</source>
        <translation>%1 gefunden</translation>
    </message>
    <message>
        <source>%1 found, %2 hidden</source>
        <translation>%1 gefunden, %2 verborgen</translation>
    </message>
    <message>
        <source>%1 hidden</source>
        <translation>%1 verborgen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Multiple Values</source>
        <translation>Mehrere Werte</translation>
    </message>
    <message>
        <source>No Selection</source>
        <translation>Keine Auswahl</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Standort</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Change City</source>
        <translation>Ort ändern</translation>
    </message>
    <message>
        <source>Contact</source>
        <translation>Kontakt</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Nobody</source>
        <translation>Niemand</translation>
    </message>
    <message>
        <source>Change Contact</source>
        <translation>Kontakt ändern</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Change Phone</source>
        <translation>Telefon ändern</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Change Kind</source>
        <translation>Art ändern</translation>
    </message>
    <message>
        <source>Router</source>
        <translation>Router</translation>
    </message>
    <message>
        <source>Switch</source>
        <translation>Switch</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Change Address</source>
        <translation>Adresse ändern</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Select Ports</source>
        <translation>Anschlüsse auswählen</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Change Speed</source>
        <translation>Tempo ändern</translation>
    </message>
    <message>
        <source>VLAN</source>
        <translation>VLAN</translation>
    </message>
    <message>
        <source>Member</source>
        <translation>Mitglied</translation>
    </message>
    <message>
        <source>Change VLAN</source>
        <translation>VLAN ändern</translation>
    </message>
    <message>
        <source>Cable</source>
        <translation>Kabel</translation>
    </message>
    <message>
        <source>Change Cable</source>
        <translation>Kabel ändern</translation>
    </message>
    <message>
        <source>Monitoring</source>
        <translation>Überwachung</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Monitored</source>
        <translation>Überwacht</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>Überwachen</translation>
    </message>
    <message>
        <source>Alarm at</source>
        <translation>Alarm ab</translation>
    </message>
    <message>
        <source>Change Alarm</source>
        <translation>Alarm ändern</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>No notes</source>
        <translation>Keine Notizen</translation>
    </message>
    <message>
        <source>Change Notes</source>
        <translation>Notizen ändern</translation>
    </message>
</context>
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
