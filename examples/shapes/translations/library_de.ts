<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the library itself; this file is kept by hand. -->
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <source>%1 (character %2).</source>
        <translation>%1 (Zeichen %2).</translation>
    </message>
    <message>
        <source>%1 This concerns %2 of %3 objects.</source>
        <translation>%1 Das betrifft %2 von %3 Objekten.</translation>
    </message>
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
        <source>%1 values: %2</source>
        <translation>%1 Werte: %2</translation>
    </message>
    <message>
        <source>%1 – not shown at present</source>
        <translation>%1 – zurzeit nicht zu sehen</translation>
    </message>
    <message>
        <source>%1 – not shown for the present value of “%2”</source>
        <translation>%1 – beim jetzigen Wert von „%2“ nicht zu sehen</translation>
    </message>
    <message>
        <source>%1 – shown when “%2” is on</source>
        <translation>%1 – zu sehen, wenn „%2“ eingeschaltet ist</translation>
    </message>
    <message>
        <source>%1 – shown when “%2” is “%3”</source>
        <translation>%1 – zu sehen, wenn „%2“ auf „%3“ steht</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>A color has 3, 6 or 8 hexadecimal digits.</source>
        <translation>Eine Farbe hat 3, 6 oder 8 hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>A parenthesis is not closed</source>
        <translation>Eine Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>An operator is missing between two numbers</source>
        <translation>Zwischen zwei Zahlen fehlt ein Rechenzeichen</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Und %1 weitere.</translation>
    </message>
    <message>
        <source>Change Height</source>
        <translation>Höhe ändern</translation>
    </message>
    <message>
        <source>Change Origin X</source>
        <translation>X ändern</translation>
    </message>
    <message>
        <source>Change Point</source>
        <translation>Punkt ändern</translation>
    </message>
    <message>
        <source>Change Size</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Change Width</source>
        <translation>Breite ändern</translation>
    </message>
    <message>
        <source>Change X</source>
        <translation>X ändern</translation>
    </message>
    <message>
        <source>Change Y</source>
        <translation>Y ändern</translation>
    </message>
    <message>
        <source>Changed from its default</source>
        <translation>Vom Standard abweichend</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy Key Path</source>
        <translation>Schlüsselpfad kopieren</translation>
    </message>
    <message>
        <source>Copy Value</source>
        <translation>Wert kopieren</translation>
    </message>
    <message>
        <source>Current Color</source>
        <translation>Aktuelle Farbe</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>More than %1 values: %2</source>
        <translation>Mehr als %1 Werte: %2</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Bewegen</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Multiple Fonts</source>
        <translation>Mehrere Schriften</translation>
    </message>
    <message>
        <source>Multiple Values</source>
        <translation>Mehrere Werte</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>No Font</source>
        <translation>Keine Schrift</translation>
    </message>
    <message>
        <source>No Selection</source>
        <translation>Keine Auswahl</translation>
    </message>
    <message>
        <source>No Value</source>
        <translation>Kein Wert</translation>
    </message>
    <message>
        <source>Not pasted:</source>
        <translation>Nicht eingefügt:</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Bezugspunkt</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere ...</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation>%1 einfügen</translation>
    </message>
    <message>
        <source>Paste Value</source>
        <translation>Wert einfügen</translation>
    </message>
    <message>
        <source>Pick Screen Color</source>
        <translation>Farbe vom Bildschirm</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Recently Used Colors</source>
        <translation>Zuletzt benutzte Farben</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>%1 zurücksetzen</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>Alle zurücksetzen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Row %1 of %2</source>
        <translation>Zeile %1 von %2</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>An operator is missing</source>
        <translation>Hier fehlt ein Rechenzeichen</translation>
    </message>
    <message>
        <source>Only one factor of a product can have a unit</source>
        <translation>Nur ein Faktor eines Produkts kann eine Einheit haben</translation>
    </message>
    <message>
        <source>The greatest value is %1.</source>
        <translation>Der größte Wert ist %1.</translation>
    </message>
    <message>
        <source>The least value is %1.</source>
        <translation>Der kleinste Wert ist %1.</translation>
    </message>
    <message>
        <source>The calculation is not complete</source>
        <translation>Die Rechnung ist nicht vollständig</translation>
    </message>
    <message>
        <source>The number must be a whole number.</source>
        <translation>Es muss eine ganze Zahl sein.</translation>
    </message>
    <message>
        <source>The number must be between %1 and %2.</source>
        <translation>Die Zahl muss zwischen %1 und %2 liegen.</translation>
    </message>
    <message>
        <source>The result is not a number.</source>
        <translation>Das Ergebnis ist keine Zahl.</translation>
    </message>
    <message>
        <source>There is no color of this name.</source>
        <translation>Es gibt keine Farbe dieses Namens.</translation>
    </message>
    <message>
        <source>There is no field for this.</source>
        <translation>Dafür gibt es kein Feld.</translation>
    </message>
    <message>
        <source>There is no such value here.</source>
        <translation>Diesen Wert gibt es hier nicht.</translation>
    </message>
    <message>
        <source>There is nothing on the clipboard that fits.</source>
        <translation>Nichts in der Zwischenablage passt hierher.</translation>
    </message>
    <message>
        <source>This cannot be changed.</source>
        <translation>Dies kann nicht geändert werden.</translation>
    </message>
    <message>
        <source>Not all objects take this value.</source>
        <translation>Nicht alle Objekte nehmen diesen Wert an.</translation>
    </message>
    <message>
        <source>This would become %1.</source>
        <translation>Daraus würde %1.</translation>
    </message>
    <message>
        <source>%1 – nothing is selected</source>
        <translation>%1 – es ist nichts ausgewählt</translation>
    </message>
    <message>
        <source>This is none of the choices.</source>
        <translation>Das ist nicht unter den Möglichkeiten.</translation>
    </message>
    <message>
        <source>This is not the number of arguments of the function</source>
        <translation>So viele Werte nimmt die Funktion nicht</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
        <source>This is not a number.</source>
        <translation>Das ist keine Zahl.</translation>
    </message>
    <message>
        <source>“%1” cannot be converted here</source>
        <translation>„%1“ lässt sich hier nicht umrechnen</translation>
    </message>
    <message>
        <source>“%1” is not expected</source>
        <translation>„%1“ passt hier nicht</translation>
    </message>
    <message>
        <source>“%1” is not known</source>
        <translation>„%1“ ist nicht bekannt</translation>
    </message>
</context>
</TS>
