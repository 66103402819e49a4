<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the files in inspector/; lupdate does not read those, so this file is kept by hand. -->
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
        <source>%1 values: %2</source>
        <translation>%1 Werte: %2</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Danach</translation>
    </message>
    <message>
        <source>Align Text</source>
        <translation>Text ausrichten</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Und %1 weitere.</translation>
    </message>
    <message>
        <source>Annotations</source>
        <translation>Anmerkungen</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message>
        <source>At Least</source>
        <translation>Mindestens</translation>
    </message>
    <message>
        <source>At Most</source>
        <translation>Höchstens</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Davor</translation>
    </message>
    <message>
        <source>Bevel</source>
        <translation>Abgeschrägt</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Break Lines</source>
        <translation>Zeilen umbrechen</translation>
    </message>
    <message>
        <source>Breaks</source>
        <translation>Umbrüche</translation>
    </message>
    <message>
        <source>By Character</source>
        <translation>Nach Zeichen</translation>
    </message>
    <message>
        <source>By Word</source>
        <translation>Nach Wörtern</translation>
    </message>
    <message>
        <source>Cap</source>
        <translation>Linienende</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>Change Author</source>
        <translation>Autor ändern</translation>
    </message>
    <message>
        <source>Change Cap</source>
        <translation>Linienende ändern</translation>
    </message>
    <message>
        <source>Change Corners</source>
        <translation>Ecken ändern</translation>
    </message>
    <message>
        <source>Change Dash</source>
        <translation>Strichart ändern</translation>
    </message>
    <message>
        <source>Change Date</source>
        <translation>Datum ändern</translation>
    </message>
    <message>
        <source>Change Due Date</source>
        <translation>Termin ändern</translation>
    </message>
    <message>
        <source>Change Fill</source>
        <translation>Füllung ändern</translation>
    </message>
    <message>
        <source>Change Fill Color</source>
        <translation>Füllfarbe ändern</translation>
    </message>
    <message>
        <source>Change Font</source>
        <translation>Schrift ändern</translation>
    </message>
    <message>
        <source>Change Font Size</source>
        <translation>Schriftgröße ändern</translation>
    </message>
    <message>
        <source>Change Frame</source>
        <translation>Rahmen ändern</translation>
    </message>
    <message>
        <source>Change Grid</source>
        <translation>Raster ändern</translation>
    </message>
    <message>
        <source>Change Height</source>
        <translation>Höhe ändern</translation>
    </message>
    <message>
        <source>Change Inner Radius</source>
        <translation>Innenradius ändern</translation>
    </message>
    <message>
        <source>Change Join</source>
        <translation>Linienverbindung ändern</translation>
    </message>
    <message>
        <source>Change Kind</source>
        <translation>Art ändern</translation>
    </message>
    <message>
        <source>Change Layer</source>
        <translation>Ebene ändern</translation>
    </message>
    <message>
        <source>Change Layers</source>
        <translation>Ebenen ändern</translation>
    </message>
    <message>
        <source>Change Lock</source>
        <translation>Sperre ändern</translation>
    </message>
    <message>
        <source>Change Note</source>
        <translation>Notiz ändern</translation>
    </message>
    <message>
        <source>Change Opacity</source>
        <translation>Deckkraft ändern</translation>
    </message>
    <message>
        <source>Change Order</source>
        <translation>Reihenfolge ändern</translation>
    </message>
    <message>
        <source>Change Origin X</source>
        <translation>X ändern</translation>
    </message>
    <message>
        <source>Change Page</source>
        <translation>Seite ändern</translation>
    </message>
    <message>
        <source>Change Pattern</source>
        <translation>Muster ändern</translation>
    </message>
    <message>
        <source>Change Point</source>
        <translation>Punkt ändern</translation>
    </message>
    <message>
        <source>Change Remarks</source>
        <translation>Bemerkungen ändern</translation>
    </message>
    <message>
        <source>Change Shadow</source>
        <translation>Schatten ändern</translation>
    </message>
    <message>
        <source>Change Sides</source>
        <translation>Seiten ändern</translation>
    </message>
    <message>
        <source>Change Size</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Change Standards</source>
        <translation>Vorgaben ändern</translation>
    </message>
    <message>
        <source>Change Stroke</source>
        <translation>Kontur ändern</translation>
    </message>
    <message>
        <source>Change Stroke Color</source>
        <translation>Konturfarbe ändern</translation>
    </message>
    <message>
        <source>Change Stroke Width</source>
        <translation>Konturstärke ändern</translation>
    </message>
    <message>
        <source>Change Tags</source>
        <translation>Schlagwörter ändern</translation>
    </message>
    <message>
        <source>Change Text</source>
        <translation>Text ändern</translation>
    </message>
    <message>
        <source>Change Text Style</source>
        <translation>Schriftstil ändern</translation>
    </message>
    <message>
        <source>Change Tips</source>
        <translation>Zacken ändern</translation>
    </message>
    <message>
        <source>Change Title</source>
        <translation>Titel ändern</translation>
    </message>
    <message>
        <source>Change Units</source>
        <translation>Einheit ändern</translation>
    </message>
    <message>
        <source>Change Visibility</source>
        <translation>Sichtbarkeit ändern</translation>
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
        <source>Clip</source>
        <translation>Abschneiden</translation>
    </message>
    <message>
        <source>Clockwise</source>
        <translation>Im Uhrzeigersinn</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
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
        <source>Corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Current Color</source>
        <translation>Aktuelle Farbe</translation>
    </message>
    <message>
        <source>Dash</source>
        <translation>Strichart</translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation>Gestrichelt</translation>
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
        <source>Diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Schreibrichtung</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Dots and Dashes</source>
        <translation>Strichpunktiert</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Termin</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>Enden</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllung</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>First Line</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <source>Flat</source>
        <translation>Flach</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Heading</source>
        <translation>Überschrift</translation>
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
        <source>Hexagon</source>
        <translation>Sechseck</translation>
    </message>
    <message>
        <source>Hyphenation</source>
        <translation>Silbentrennung</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <source>Indents</source>
        <translation>Einzüge</translation>
    </message>
    <message>
        <source>Inside</source>
        <translation>Innen</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Layers and Standards</source>
        <translation>Ebenen und Vorgaben</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Left to Right</source>
        <translation>Von links nach rechts</translation>
    </message>
    <message>
        <source>Line Height</source>
        <translation>Zeilenhöhe</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mittig</translation>
    </message>
    <message>
        <source>Millimeters</source>
        <translation>Millimeter</translation>
    </message>
    <message>
        <source>Miter</source>
        <translation>Spitz</translation>
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
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name, place and size</source>
        <translation>Name, Lage und Größe</translation>
    </message>
    <message>
        <source>Natural</source>
        <translation>Natürlich</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>New Shapes</source>
        <translation>Neue Formen</translation>
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
        <source>No text</source>
        <translation>Kein Text</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Not pasted:</source>
        <translation>Nicht eingefügt:</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Octagon</source>
        <translation>Achteck</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Reihenfolge</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Bezugspunkt</translation>
    </message>
    <message>
        <source>Other Lines</source>
        <translation>Weitere Zeilen</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere ...</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Umriss</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Paragraphs</source>
        <translation>Absätze</translation>
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
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Pentagon</source>
        <translation>Fünfeck</translation>
    </message>
    <message>
        <source>Pick Screen Color</source>
        <translation>Farbe vom Bildschirm</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Einfarbig</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Vieleck</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Position and Size</source>
        <translation>Position und Größe</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Recently Used Colors</source>
        <translation>Zuletzt benutzte Farben</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Bemerkungen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
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
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Right to Left</source>
        <translation>Von rechts nach links</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Round</source>
        <translation>Rund</translation>
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
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Select Similar</source>
        <translation>Ähnliche wählen</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Gewählt</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Show Grid</source>
        <translation>Raster zeigen</translation>
    </message>
    <message>
        <source>Sides</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Durchgezogen</translation>
    </message>
    <message>
        <source>Spacing</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Eckig</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <source>Strike Out</source>
        <translation>Durchgestr.</translation>
    </message>
    <message>
        <source>Stroke</source>
        <translation>Kontur</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Swatches</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Tab Interval</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Tail</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The day until which the shape is to be finished</source>
        <translation>Der Tag, bis zu dem die Form fertig sein soll</translation>
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
        <source>This is none of the choices.</source>
        <translation>Das ist nicht unter den Möglichkeiten.</translation>
    </message>
    <message>
        <source>Tightening</source>
        <translation>Verdichtung</translation>
    </message>
    <message>
        <source>Tips</source>
        <translation>Zacken</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>Truncate Head</source>
        <translation>Anfang kürzen</translation>
    </message>
    <message>
        <source>Truncate Middle</source>
        <translation>Mitte kürzen</translation>
    </message>
    <message>
        <source>Truncate Tail</source>
        <translation>Ende kürzen</translation>
    </message>
    <message>
        <source>Turns the shape around the middle of its frame. Drag the pointer, or type the degrees.</source>
        <translation>Dreht die Form um die Mitte ihres Rahmens. Ziehen Sie den Zeiger, oder geben Sie die Grad ein.</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>Unterstr.</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Use for New Shadows</source>
        <translation>Für neue Schatten</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Visible Layers</source>
        <translation>Sichtbare Ebenen</translation>
    </message>
    <message>
        <source>What the shape is called, and whether it is seen and can be moved.</source>
        <translation>Wie die Form heißt, und ob sie zu sehen ist und bewegt werden kann.</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
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
        <source>The result is not a number.</source>
        <translation>Das Ergebnis ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1 This concerns %2 of %3 objects.</source>
        <translation>%1 Das betrifft %2 von %3 Objekten.</translation>
    </message>
    <message>
        <source>The calculation is not complete</source>
        <translation>Die Rechnung ist nicht vollständig</translation>
    </message>
    <message>
        <source>A parenthesis is not closed</source>
        <translation>Eine Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>An operator is missing between two numbers</source>
        <translation>Zwischen zwei Zahlen fehlt ein Rechenzeichen</translation>
    </message>
    <message>
        <source>“%1” is not known</source>
        <translation>„%1“ ist nicht bekannt</translation>
    </message>
    <message>
        <source>“%1” is not expected</source>
        <translation>„%1“ passt hier nicht</translation>
    </message>
    <message>
        <source>“%1” cannot be converted here</source>
        <translation>„%1“ lässt sich hier nicht umrechnen</translation>
    </message>
    <message>
        <source>%1 (character %2)</source>
        <translation>%1 (Zeichen %2)</translation>
    </message>
    <message>
        <source>This is not the number of arguments of the function</source>
        <translation>So viele Werte nimmt die Funktion nicht</translation>
    </message>
    <message>
        <source>The number must be between %1 and %2.</source>
        <translation>Die Zahl muss zwischen %1 und %2 liegen.</translation>
    </message>
    <message>
        <source>The number must be a whole number.</source>
        <translation>Es muss eine ganze Zahl sein.</translation>
    </message>
</context>
</TS>
