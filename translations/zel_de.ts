<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the library: tools/library-texts.py. -->
<TS version="2.1" language="de">
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
        <source>%1 was changed to %2.</source>
        <translation>%1 wurde zu %2 geändert.</translation>
    </message>
    <message>
        <source>%1 – not for what is selected</source>
        <translation>%1 – nicht für das Ausgewählte</translation>
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
        <source>%1 – nothing is selected</source>
        <translation>%1 – es ist nichts ausgewählt</translation>
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
        <source>A number of this size must be typed with all its digits.</source>
        <translation>Eine Zahl dieser Größe muss mit allen Ziffern eingegeben werden.</translation>
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
        <source>Align Center</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>Align Justified</source>
        <translation>Blocksatz</translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation>Linksbündig</translation>
    </message>
    <message>
        <source>Align Natural</source>
        <translation>Natürlich ausgerichtet</translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation>Rechtsbündig</translation>
    </message>
    <message>
        <source>Alternate Selected Control Color</source>
        <translation>Andere Farbe gewählter Bedienelemente</translation>
    </message>
    <message>
        <source>Alternate Selected Control Text Color</source>
        <translation>Andere Textfarbe gewählter Bedienelemente</translation>
    </message>
    <message>
        <source>Amber</source>
        <translation>Bernstein</translation>
    </message>
    <message>
        <source>An operator is missing</source>
        <translation>Hier fehlt ein Rechenzeichen</translation>
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
        <source>Background Color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Bold System</source>
        <translation>System fett</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Brick</source>
        <translation>Ziegelrot</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
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
        <source>Change Origin Y</source>
        <translation>Ursprung Y ändern</translation>
    </message>
    <message>
        <source>Change Point</source>
        <translation>Punkt ändern</translation>
    </message>
    <message>
        <source>Change Width</source>
        <translation>Breite ändern</translation>
    </message>
    <message>
        <source>Changed from its default</source>
        <translation>Vom Standard abweichend</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Control Background Color</source>
        <translation>Hintergrund von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Color</source>
        <translation>Farbe von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Content</source>
        <translation>Inhalt von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Dark Shadow Color</source>
        <translation>Dunkler Schatten von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Highlight Color</source>
        <translation>Glanz von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Light Highlight Color</source>
        <translation>Heller Glanz von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Shadow Color</source>
        <translation>Schatten von Bedienelementen</translation>
    </message>
    <message>
        <source>Control Text Color</source>
        <translation>Text von Bedienelementen</translation>
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
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Disabled Control Text Color</source>
        <translation>Text gesperrter Bedienelemente</translation>
    </message>
    <message>
        <source>Divider</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Errors in the description</source>
        <translation>Fehler in der Beschreibung</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>Familie</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Waldgrün</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphit</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Grid Color</source>
        <translation>Gitterfarbe</translation>
    </message>
    <message>
        <source>Header Color</source>
        <translation>Kopfzeilenfarbe</translation>
    </message>
    <message>
        <source>Header Text Color</source>
        <translation>Text von Kopfzeilen</translation>
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
        <source>Highlight Color</source>
        <translation>Glanzfarbe</translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation>Indigo</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>Keyboard Focus Indicator Color</source>
        <translation>Farbe des Tastaturfokus</translation>
    </message>
    <message>
        <source>Knob Color</source>
        <translation>Farbe von Knöpfen</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Lime</source>
        <translation>Limette</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation>Menüleiste</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Mini</source>
        <translation>Mini</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>More than %1 values: %2</source>
        <translation>Mehr als %1 Werte: %2</translation>
    </message>
    <message>
        <source>More...</source>
        <translation>Mehr ...</translation>
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
        <source>Multiple Families</source>
        <translation>Mehrere Familien</translation>
    </message>
    <message>
        <source>Multiple Fonts</source>
        <translation>Mehrere Schriften</translation>
    </message>
    <message>
        <source>Multiple Sizes</source>
        <translation>Mehrere Größen</translation>
    </message>
    <message>
        <source>Multiple Styles</source>
        <translation>Mehrere Stile</translation>
    </message>
    <message>
        <source>Multiple Values</source>
        <translation>Mehrere Werte</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>Marineblau</translation>
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
        <source>No Size</source>
        <translation>Keine Größe</translation>
    </message>
    <message>
        <source>No Value</source>
        <translation>Kein Wert</translation>
    </message>
    <message>
        <source>No title</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Not Applicable</source>
        <translation>Nicht anwendbar</translation>
    </message>
    <message>
        <source>Not all objects take this value.</source>
        <translation>Nicht alle Objekte nehmen diesen Wert an.</translation>
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
        <source>OK</source>
        <translation>OK</translation>
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
        <source>Only one factor of a product can have a unit</source>
        <translation>Nur ein Faktor eines Produkts kann eine Einheit haben</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Bezugspunkt</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere ...</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
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
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Recently Used Colors</source>
        <translation>Zuletzt benutzte Farben</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
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
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Row %1 of %2</source>
        <translation>Zeile %1 von %2</translation>
    </message>
    <message>
        <source>Sand</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>Scroll Bar Color</source>
        <translation>Farbe von Bildlaufleisten</translation>
    </message>
    <message>
        <source>Secondary Selected Control Color</source>
        <translation>Zweite Farbe gewählter Bedienelemente</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Section %1</source>
        <translation>Abschnitt %1</translation>
    </message>
    <message>
        <source>Selected Control Color</source>
        <translation>Farbe gewählter Bedienelemente</translation>
    </message>
    <message>
        <source>Selected Control Text Color</source>
        <translation>Text gewählter Bedienelemente</translation>
    </message>
    <message>
        <source>Selected Knob Color</source>
        <translation>Farbe gewählter Knöpfe</translation>
    </message>
    <message>
        <source>Selected Menu Item Color</source>
        <translation>Farbe gewählter Menüeinträge</translation>
    </message>
    <message>
        <source>Selected Menu Item Text Color</source>
        <translation>Text gewählter Menüeinträge</translation>
    </message>
    <message>
        <source>Selected Text Background Color</source>
        <translation>Hintergrund von gewähltem Text</translation>
    </message>
    <message>
        <source>Selected Text Color</source>
        <translation>Gewählter Text</translation>
    </message>
    <message>
        <source>Shadow Color</source>
        <translation>Schattenfarbe</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Himmelblau</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Blaugrün</translation>
    </message>
    <message>
        <source>Text Color</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>TextBackground Color</source>
        <translation>Texthintergrund</translation>
    </message>
    <message>
        <source>The calculation is not complete</source>
        <translation>Die Rechnung ist nicht vollständig</translation>
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
        <source>The result would not be exact.</source>
        <translation>Das Ergebnis wäre nicht genau.</translation>
    </message>
    <message>
        <source>The value was not accepted as it was entered.</source>
        <translation>Der Wert wurde nicht so übernommen, wie er eingegeben wurde.</translation>
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
        <source>These are not %1 numbers.</source>
        <translation>Das sind nicht %1 Zahlen.</translation>
    </message>
    <message>
        <source>These are not keys.</source>
        <translation>Das sind keine Tasten.</translation>
    </message>
    <message>
        <source>This cannot be changed.</source>
        <translation>Dies kann nicht geändert werden.</translation>
    </message>
    <message>
        <source>This is none of the choices.</source>
        <translation>Das ist nicht unter den Möglichkeiten.</translation>
    </message>
    <message>
        <source>This is not a color.</source>
        <translation>Das ist keine Farbe.</translation>
    </message>
    <message>
        <source>This is not a date.</source>
        <translation>Das ist kein Datum.</translation>
    </message>
    <message>
        <source>This is not a language.</source>
        <translation>Das ist keine Sprache.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Das ist keine Zahl.</translation>
    </message>
    <message>
        <source>This is not a regular expression: %1</source>
        <translation>Das ist kein regulärer Ausdruck: %1</translation>
    </message>
    <message>
        <source>This is not a time zone.</source>
        <translation>Das ist keine Zeitzone.</translation>
    </message>
    <message>
        <source>This is not a time.</source>
        <translation>Das ist keine Zeit.</translation>
    </message>
    <message>
        <source>This is not a value.</source>
        <translation>Das ist kein Wert.</translation>
    </message>
    <message>
        <source>This is not an address.</source>
        <translation>Das ist keine Adresse.</translation>
    </message>
    <message>
        <source>This is not the number of arguments of the function</source>
        <translation>So viele Werte nimmt die Funktion nicht</translation>
    </message>
    <message>
        <source>This must be one of %1.</source>
        <translation>Das muss eines von diesen sein: %1.</translation>
    </message>
    <message>
        <source>This would become %1.</source>
        <translation>Daraus würde %1.</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Tool Tips</source>
        <translation>Kurzhilfen</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>User Fixed Pitch</source>
        <translation>Benutzer, feste Breite</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>W</source>
        <translation>W</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Window Background Color</source>
        <translation>Fensterhintergrund</translation>
    </message>
    <message>
        <source>Window Frame Color</source>
        <translation>Fensterrahmen</translation>
    </message>
    <message>
        <source>Window Frame Text Color</source>
        <translation>Text von Fensterrahmen</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>X1</source>
        <translation>X1</translation>
    </message>
    <message>
        <source>X2</source>
        <translation>X2</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Y1</source>
        <translation>Y1</translation>
    </message>
    <message>
        <source>Y2</source>
        <translation>Y2</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoomen</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
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
