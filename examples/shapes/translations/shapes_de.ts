<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Actions</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>D&amp;uplizieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Select &amp;None</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>&amp;Find in Inspector</source>
        <translation>Im Inspektor &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>&amp;Rechteck</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>&amp;Ellipse</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>&amp;Stern</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>&amp;Vieleck</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>&amp;Raise</source>
        <translation>Nach &amp;vorn</translation>
    </message>
    <message>
        <source>&amp;Lower</source>
        <translation>Nach &amp;hinten</translation>
    </message>
    <message>
        <source>Raise to &amp;Top</source>
        <translation>&amp;Ganz nach vorn</translation>
    </message>
    <message>
        <source>Lower to &amp;Bottom</source>
        <translation>Ganz nach h&amp;inten</translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation>Links ausrichten</translation>
    </message>
    <message>
        <source>Align Center</source>
        <translation>Waagerecht zentrieren</translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation>Rechts ausrichten</translation>
    </message>
    <message>
        <source>Align Top</source>
        <translation>Oben ausrichten</translation>
    </message>
    <message>
        <source>Align Middle</source>
        <translation>Senkrecht zentrieren</translation>
    </message>
    <message>
        <source>Align Bottom</source>
        <translation>Unten ausrichten</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>A&amp;ctual Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>Zoom to &amp;Fit</source>
        <translation>An Fenster &amp;anpassen</translation>
    </message>
    <message>
        <source>&amp;Shapes</source>
        <translation>&amp;Formen</translation>
    </message>
    <message>
        <source>Ins&amp;pector</source>
        <translation>Ins&amp;pektor</translation>
    </message>
    <message>
        <source>Ne&amp;xt Area</source>
        <translation>Nächster &amp;Bereich</translation>
    </message>
    <message>
        <source>Previous Are&amp;a</source>
        <translation>&amp;Voriger Bereich</translation>
    </message>
    <message>
        <source>&amp;Dark Palette</source>
        <translation>&amp;Dunkle Farben</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>&amp;Direkthilfe</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Annotations</source>
        <translation>Anmerkungen</translation>
    </message>
</context>
<context>
    <name>InspectorOwner</name>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>%L1 shapes</source>
        <translation>%L1 Formen</translation>
    </message>
    <message>
        <source>Delete %L1 Shapes</source>
        <translation>%L1 Formen löschen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Align %L1 Shapes</source>
        <translation>%L1 Formen ausrichten</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>&amp;Anordnen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>Es gibt keine Übersetzung.</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspektor</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>: %1 by %2</source>
        <translation>: %1 mal %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Vieleck</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 einfügen</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Bewegen</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>Ausrichten</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Raise</source>
        <translation>Nach vorn</translation>
    </message>
    <message>
        <source>Lower</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Raise to Top</source>
        <translation>Ganz nach vorn</translation>
    </message>
    <message>
        <source>Lower to Bottom</source>
        <translation>Ganz nach hinten</translation>
    </message>
    <message>
        <source>Change Shadow of New Shapes</source>
        <translation>Schatten neuer Formen ändern</translation>
    </message>
</context>
<context>
    <name>SampleDocument</name>
    <message>
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message>
        <source>Sea</source>
        <translation>Meer</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>Sonne</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>Wolke</translation>
    </message>
    <message>
        <source>Small cloud</source>
        <translation>Kleine Wolke</translation>
    </message>
    <message>
        <source>Mast</source>
        <translation>Mast</translation>
    </message>
    <message>
        <source>Sail</source>
        <translation>Segel</translation>
    </message>
    <message>
        <source>Flag</source>
        <translation>Flagge</translation>
    </message>
    <message>
        <source>Hull</source>
        <translation>Rumpf</translation>
    </message>
    <message>
        <source>Porthole</source>
        <translation>Bullauge</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>A fair wind</source>
        <translation>Guter Wind</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>For the harbour office</source>
        <translation>Für das Hafenamt</translation>
    </message>
    <message>
        <source>The title goes to the print shop, too.</source>
        <translation>Der Titel geht auch an die Druckerei.</translation>
    </message>
    <message>
        <source>background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>water</source>
        <translation>Wasser</translation>
    </message>
    <message>
        <source>Sailing boat</source>
        <translation>Segelboot</translation>
    </message>
    <message>
        <source>Shape %1</source>
        <translation>Form %1</translation>
    </message>
    <message>
        <source>%1 shapes</source>
        <translation>%1 Formen</translation>
    </message>
</context>
<context>
    <name>Shape</name>
    <message>
        <source>A name has at most %1 letters.</source>
        <translation>Ein Name hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>A shape is at most 1,000,000 points from the corner of the page.</source>
        <translation>Eine Form liegt höchstens 1.000.000 Punkte von der Ecke der Seite entfernt.</translation>
    </message>
    <message>
        <source>A shape is at most 100,000 points wide and high.</source>
        <translation>Eine Form ist höchstens 100.000 Punkte breit und hoch.</translation>
    </message>
    <message>
        <source>A name contains no slash.</source>
        <translation>Ein Name enthält keinen Schrägstrich.</translation>
    </message>
</context>
</TS>
