<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <location filename="../Inspector.xml" line="48"/>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="88"/>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="95"/>
        <source>Alarm at</source>
        <translation>Alarm ab</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="78"/>
        <source>Cable</source>
        <translation>Kabel</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="50"/>
        <source>Change Address</source>
        <translation>Adresse ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="98"/>
        <source>Change Alarm</source>
        <translation>Alarm ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="80"/>
        <source>Change Cable</source>
        <translation>Kabel ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="19"/>
        <source>Change City</source>
        <translation>Ort ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="25"/>
        <source>Change Contact</source>
        <translation>Kontakt ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="40"/>
        <source>Change Kind</source>
        <translation>Art ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="108"/>
        <source>Change Notes</source>
        <translation>Notizen ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="29"/>
        <source>Change Phone</source>
        <translation>Telefon ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="71"/>
        <source>Change Speed</source>
        <translation>Tempo ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="76"/>
        <source>Change VLAN</source>
        <translation>VLAN ändern</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="18"/>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="22"/>
        <source>Contact</source>
        <translation>Kontakt</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="35"/>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="67"/>
        <source>Enable</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="66"/>
        <source>Enabled</source>
        <translation>Eingeschaltet</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="4"/>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="44"/>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="38"/>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="75"/>
        <source>Member</source>
        <translation>Mitglied</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="93"/>
        <source>Monitor</source>
        <translation>Überwachen</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="92"/>
        <source>Monitored</source>
        <translation>Überwacht</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="87"/>
        <source>Monitoring</source>
        <translation>Überwachung</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="7"/>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="107"/>
        <source>No notes</source>
        <translation>Keine Notizen</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="25"/>
        <source>Nobody</source>
        <translation>Niemand</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="29"/>
        <location filename="../Inspector.xml" line="75"/>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="103"/>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="23"/>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="27"/>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="62"/>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="3"/>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="8"/>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="42"/>
        <source>Router</source>
        <translation>Router</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="56"/>
        <source>Select Ports</source>
        <translation>Anschlüsse auswählen</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="52"/>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="15"/>
        <source>Site</source>
        <translation>Standort</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="69"/>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="43"/>
        <source>Switch</source>
        <translation>Switch</translation>
    </message>
    <message>
        <location filename="../Inspector.xml" line="73"/>
        <source>VLAN</source>
        <translation>VLAN</translation>
    </message>
</context>
</TS>
