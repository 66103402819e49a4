<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <location filename="../inspector/PlacementSlice.xml" line="10"/>
        <location filename="../inspector/GeometryPane.xml" line="42"/>
        <source>A selected shape is locked</source>
        <translation>Eine ausgewählte Form ist gesperrt</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="36"/>
        <source>After</source>
        <translation>Danach</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="121"/>
        <location filename="../inspector/StylePane.xml" line="130"/>
        <source>Align Text</source>
        <translation>Text ausrichten</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="116"/>
        <location filename="../inspector/ArrangePane.xml" line="34"/>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="69"/>
        <source>Annotations</source>
        <translation>Anmerkungen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="44"/>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="2"/>
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="22"/>
        <source>At Least</source>
        <translation>Mindestens</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="25"/>
        <source>At Most</source>
        <translation>Höchstens</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="13"/>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="67"/>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="33"/>
        <source>Before</source>
        <translation>Davor</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="104"/>
        <source>Bevel</source>
        <translation>Abgeschrägt</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="12"/>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="134"/>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="44"/>
        <source>Break Lines</source>
        <translation>Zeilen umbrechen</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="43"/>
        <source>Breaks</source>
        <translation>Umbrüche</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="48"/>
        <source>By Character</source>
        <translation>Nach Zeichen</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="47"/>
        <source>By Word</source>
        <translation>Nach Wörtern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="89"/>
        <source>Cap</source>
        <translation>Linienende</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="124"/>
        <source>Center</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="15"/>
        <source>Change Author</source>
        <translation>Autor ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="91"/>
        <source>Change Cap</source>
        <translation>Linienende ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="9"/>
        <source>Change Corners</source>
        <translation>Ecken ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="77"/>
        <source>Change Corners of New Shapes</source>
        <translation>Ecken neuer Formen ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="18"/>
        <source>Change Creation Date</source>
        <translation>Erstellungsdatum ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="77"/>
        <source>Change Dash</source>
        <translation>Strichart ändern</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="20"/>
        <source>Change Due Date</source>
        <translation>Termin ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="23"/>
        <source>Change Fill</source>
        <translation>Füllung ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="27"/>
        <location filename="../inspector/StylePane.xml" line="32"/>
        <source>Change Fill Color</source>
        <translation>Füllfarbe ändern</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="4"/>
        <source>Change Font</source>
        <translation>Schrift ändern</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="8"/>
        <source>Change Font Size</source>
        <translation>Schriftgröße ändern</translation>
    </message>
    <message>
        <location filename="../inspector/PlacementSlice.xml" line="10"/>
        <source>Change Frame</source>
        <translation>Rahmen ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="48"/>
        <source>Change Grid</source>
        <translation>Raster ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="54"/>
        <source>Change Grid Spacing</source>
        <translation>Rasterabstand ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="21"/>
        <source>Change Inner Radius</source>
        <translation>Innenradius ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="100"/>
        <source>Change Join</source>
        <translation>Linienverbindung ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="3"/>
        <source>Change Kind</source>
        <translation>Art ändern</translation>
    </message>
    <message>
        <location filename="../inspector/LayerSliver.xml" line="6"/>
        <source>Change Layer</source>
        <translation>Ebene ändern</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="25"/>
        <source>Change Lock</source>
        <translation>Sperre ändern</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="14"/>
        <source>Change Note</source>
        <translation>Notiz ändern</translation>
    </message>
    <message>
        <location filename="../inspector/OpacityProperty.xml" line="5"/>
        <source>Change Opacity</source>
        <translation>Deckkraft ändern</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="31"/>
        <source>Change Order</source>
        <translation>Reihenfolge ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="42"/>
        <source>Change Page Size</source>
        <translation>Seitengröße ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="37"/>
        <source>Change Pattern</source>
        <translation>Muster ändern</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="34"/>
        <source>Change Remarks</source>
        <translation>Bemerkungen ändern</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="42"/>
        <source>Change Rotation</source>
        <translation>Drehung ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="44"/>
        <source>Change Shadow Offset</source>
        <translation>Schattenversatz ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="81"/>
        <source>Change Shadow of New Shapes</source>
        <translation>Schatten neuer Formen ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="25"/>
        <location filename="../inspector/KindChooser.xml" line="34"/>
        <source>Change Sides</source>
        <translation>Seiten ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="62"/>
        <source>Change Stroke</source>
        <translation>Kontur ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="73"/>
        <source>Change Stroke Color</source>
        <translation>Konturfarbe ändern</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="69"/>
        <source>Change Stroke Width</source>
        <translation>Konturstärke ändern</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="28"/>
        <source>Change Tags</source>
        <translation>Schlagwörter ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="40"/>
        <source>Change Text</source>
        <translation>Text ändern</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="13"/>
        <location filename="../inspector/FontSection.xml" line="15"/>
        <location filename="../inspector/FontSection.xml" line="17"/>
        <location filename="../inspector/FontSection.xml" line="19"/>
        <source>Change Text Style</source>
        <translation>Schriftstil ändern</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="16"/>
        <source>Change Tips</source>
        <translation>Zacken ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="11"/>
        <source>Change Title</source>
        <translation>Titel ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="25"/>
        <source>Change Unit of Status Bar</source>
        <translation>Einheit der Statusleiste ändern</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="22"/>
        <source>Change Visibility</source>
        <translation>Sichtbarkeit ändern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="65"/>
        <source>Change Visible Layers</source>
        <translation>Sichtbare Ebenen ändern</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="49"/>
        <source>Clip</source>
        <translation>Abschneiden</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="36"/>
        <source>Clockwise</source>
        <translation>Im Uhrzeigersinn</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="25"/>
        <location filename="../inspector/StylePane.xml" line="71"/>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="6"/>
        <location filename="../inspector/DocumentPane.xml" line="75"/>
        <source>Corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="17"/>
        <source>Created</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="75"/>
        <source>Dash</source>
        <translation>Strichart</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="82"/>
        <source>Dashed</source>
        <translation>Gestrichelt</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="27"/>
        <source>Diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="62"/>
        <source>Direction</source>
        <translation>Schreibrichtung</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="4"/>
        <location filename="../inspector/DocumentPane.xml" line="6"/>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="84"/>
        <source>Dots and Dashes</source>
        <translation>Strichpunktiert</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="83"/>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="68"/>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="18"/>
        <source>Due</source>
        <translation>Termin</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="25"/>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="12"/>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="88"/>
        <source>Ends</source>
        <translation>Enden</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="15"/>
        <location filename="../inspector/StylePane.xml" line="22"/>
        <source>Fill</source>
        <translation>Füllung</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="5"/>
        <source>First Line</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="93"/>
        <source>Flat</source>
        <translation>Flach</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="2"/>
        <location filename="../inspector/FontSection.xml" line="3"/>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="2"/>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="45"/>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="39"/>
        <source>Heading</source>
        <translation>Überschrift</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="29"/>
        <source>Hexagon</source>
        <translation>Sechseck</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="18"/>
        <source>How much of what lies behind is hidden</source>
        <translation>Wie viel von dem verdeckt wird, was dahinter liegt</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="56"/>
        <source>Hyphenation</source>
        <translation>Silbentrennung</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="29"/>
        <source>Inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="4"/>
        <source>Indents</source>
        <translation>Einzüge</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="18"/>
        <source>Inner Radius</source>
        <translation>Innenradius</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="14"/>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="98"/>
        <source>Join</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="3"/>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <location filename="../inspector/LayerSliver.xml" line="3"/>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="60"/>
        <source>Layers and Standards</source>
        <translation>Ebenen und Vorgaben</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="123"/>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="66"/>
        <source>Left to Right</source>
        <translation>Von links nach rechts</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="19"/>
        <source>Line Height</source>
        <translation>Zeilenhöhe</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="18"/>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="23"/>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="24"/>
        <source>Locked shapes are not moved, resized or rotated</source>
        <translation>Gesperrte Formen werden nicht bewegt, vergrößert oder gedreht</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="133"/>
        <source>Middle</source>
        <translation>Mittig</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="28"/>
        <source>Millimeters</source>
        <translation>Millimeter</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="102"/>
        <source>Miter</source>
        <translation>Spitz</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="7"/>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="2"/>
        <source>Name, place and size</source>
        <translation>Name, Lage und Größe</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="65"/>
        <source>Natural</source>
        <translation>Natürlich</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="19"/>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="74"/>
        <source>New Shapes</source>
        <translation>Neue Formen</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="49"/>
        <source>New shadows begin with this offset</source>
        <translation>Neue Schatten beginnen mit diesem Versatz</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="14"/>
        <source>No shape is selected</source>
        <translation>Keine Form ist ausgewählt</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="39"/>
        <source>No text</source>
        <translation>Kein Text</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="14"/>
        <location filename="../inspector/StylePane.xml" line="43"/>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="12"/>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="2"/>
        <location filename="../inspector/NotesPane.xml" line="15"/>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="17"/>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="30"/>
        <source>Octagon</source>
        <translation>Achteck</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="41"/>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="18"/>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="29"/>
        <source>Order</source>
        <translation>Reihenfolge</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="8"/>
        <source>Other Lines</source>
        <translation>Weitere Zeilen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="52"/>
        <source>Outline</source>
        <translation>Umriss</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="37"/>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="32"/>
        <source>Paragraphs</source>
        <translation>Absätze</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="34"/>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="28"/>
        <source>Pentagon</source>
        <translation>Fünfeck</translation>
    </message>
    <message>
        <location filename="../inspector/PlacementSlice.xml" line="5"/>
        <source>Place and size on the page; the picker says which point X and Y tell</source>
        <translation>Ort und Größe auf der Seite; die Auswahl bestimmt, welchen Punkt X und Y angeben</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="36"/>
        <source>Plain</source>
        <translation>Einfarbig</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="27"/>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="24"/>
        <source>Polygon</source>
        <translation>Vieleck</translation>
    </message>
    <message>
        <location filename="../inspector/PlacementInspector.xml" line="3"/>
        <source>Position and Size</source>
        <translation>Position und Größe</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="25"/>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="4"/>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="31"/>
        <source>Remarks</source>
        <translation>Bemerkungen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="9"/>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="125"/>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="67"/>
        <source>Right to Left</source>
        <translation>Von rechts nach links</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="36"/>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="8"/>
        <location filename="../inspector/StylePane.xml" line="94"/>
        <location filename="../inspector/StylePane.xml" line="103"/>
        <source>Round</source>
        <translation>Rund</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="11"/>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="12"/>
        <source>Select Similar</source>
        <translation>Ähnliche wählen</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="8"/>
        <location filename="../inspector/ArrangePane.xml" line="7"/>
        <location filename="../inspector/NotesPane.xml" line="8"/>
        <source>Selected</source>
        <translation>Gewählt</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="4"/>
        <location filename="../inspector/ArrangePane.xml" line="4"/>
        <location filename="../inspector/NotesPane.xml" line="4"/>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="13"/>
        <source>Selects all shapes of the same kinds</source>
        <translation>Wählt alle Formen derselben Arten aus</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="50"/>
        <source>Several shapes are selected</source>
        <translation>Mehrere Formen sind ausgewählt</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="40"/>
        <location filename="../inspector/StylePane.xml" line="43"/>
        <location filename="../inspector/DocumentPane.xml" line="79"/>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="4"/>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <location filename="../inspector/ArrangePane.xml" line="20"/>
        <location filename="../inspector/DocumentPane.xml" line="20"/>
        <source>Shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="47"/>
        <source>Show Grid</source>
        <translation>Raster zeigen</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="32"/>
        <source>Sides</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="6"/>
        <location filename="../inspector/DocumentPane.xml" line="40"/>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="79"/>
        <source>Solid</source>
        <translation>Durchgezogen</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="50"/>
        <location filename="../inspector/ZelParagraphStyle.xml" line="28"/>
        <source>Spacing</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="8"/>
        <location filename="../inspector/StylePane.xml" line="95"/>
        <source>Square</source>
        <translation>Eckig</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="13"/>
        <source>Star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="23"/>
        <source>Status Bar</source>
        <translation>Statusleiste</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="18"/>
        <source>Strike Out</source>
        <translation>Durchgestr.</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="56"/>
        <location filename="../inspector/StylePane.xml" line="60"/>
        <source>Stroke</source>
        <translation>Kontur</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="2"/>
        <location filename="../inspector/FontSection.xml" line="11"/>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="30"/>
        <source>Swatches</source>
        <translation>Palette</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="14"/>
        <source>Tab Interval</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="23"/>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="11"/>
        <source>Tail</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="37"/>
        <location filename="../inspector/KindChooser.xml" line="38"/>
        <location filename="../inspector/StylePane.xml" line="112"/>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="20"/>
        <source>The day until which the shape is to be finished</source>
        <translation>Der Tag, bis zu dem die Form fertig sein soll</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="53"/>
        <source>The grid is not shown</source>
        <translation>Das Raster wird nicht gezeigt</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="34"/>
        <source>The hatching of the fill</source>
        <translation>Die Schraffur der Füllung</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="23"/>
        <source>The unit in which the status bar tells lengths</source>
        <translation>Die Einheit, in der die Statusleiste Längen angibt</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="59"/>
        <source>Tightening</source>
        <translation>Verdichtung</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="14"/>
        <source>Tips</source>
        <translation>Zacken</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="9"/>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="132"/>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <location filename="../inspector/KindChooser.xml" line="26"/>
        <source>Triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="50"/>
        <source>Truncate Head</source>
        <translation>Anfang kürzen</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="52"/>
        <source>Truncate Middle</source>
        <translation>Mitte kürzen</translation>
    </message>
    <message>
        <location filename="../inspector/ZelParagraphStyle.xml" line="51"/>
        <source>Truncate Tail</source>
        <translation>Ende kürzen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="37"/>
        <source>Turns the shape around the middle of its frame. Drag the pointer, or type the degrees.</source>
        <translation>Dreht die Form um die Mitte ihres Rahmens. Ziehen Sie den Zeiger, oder geben Sie die Grad ein.</translation>
    </message>
    <message>
        <location filename="../inspector/FontSection.xml" line="16"/>
        <source>Underline</source>
        <translation>Unterstr.</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="15"/>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="8"/>
        <source>Unnamed</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="10"/>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="48"/>
        <source>Use for New Shadows</source>
        <translation>Für neue Schatten</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="21"/>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="62"/>
        <source>Visible Layers</source>
        <translation>Sichtbare Ebenen</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="75"/>
        <source>What round corners of rectangles begin with</source>
        <translation>Womit runde Ecken von Rechtecken beginnen</translation>
    </message>
    <message>
        <location filename="../inspector/GeometryPane.xml" line="4"/>
        <source>What the shape is called, and whether it is seen and can be moved.</source>
        <translation>Wie die Form heißt, und ob sie zu sehen ist und bewegt werden kann.</translation>
    </message>
    <message>
        <location filename="../inspector/DocumentPane.xml" line="50"/>
        <source>While the grid is shown, places and sizes go in steps of this length</source>
        <translation>Solange das Raster zu sehen ist, gehen Orte und Größen in Schritten dieser Länge</translation>
    </message>
    <message>
        <location filename="../inspector/StylePane.xml" line="66"/>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <location filename="../inspector/NotesPane.xml" line="23"/>
        <source>Words that say what the shape is for</source>
        <translation>Wörter, die sagen, wozu die Form da ist</translation>
    </message>
</context>
</TS>
