<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the library: tools/library-texts.py. -->
<TS version="2.1">
<context>
    <name>Application</name>
    <message>
        <source>%1 (character %2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 This concerns %2 of %3 objects.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 found, %2 hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 values: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was changed to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – not for what is selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – not shown at present</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – not shown for the present value of “%2”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – nothing is selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – shown when “%2” is on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 – shown when “%2” is “%3”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A color has 3, 6 or 8 hexadecimal digits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A number of this size must be typed with all its digits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A parenthesis is not closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Align Center</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Align Justified</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Align Natural</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alternate Selected Control Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alternate Selected Control Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amber</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An operator is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An operator is missing between two numbers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bold System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brick</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Center</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Origin X</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Origin Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changed from its default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Background Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Content</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Dark Shadow Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Highlight Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Light Highlight Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Shadow Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Key Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled Control Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Divider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Errors in the description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Family</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grid Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hex</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Highlight Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyboard Focus Indicator Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Knob Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Label</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mini</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More than %1 values: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple Families</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple Fonts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple Sizes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple Styles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Navy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not Applicable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not all objects take this value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not pasted:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only one factor of a product can have a unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orange</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Origin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Palette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick Screen Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pink</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recently Used Colors</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Regular</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Row %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sand</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scroll Bar Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Secondary Selected Control Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Control Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Control Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Knob Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Menu Item Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Menu Item Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Text Background Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shadow Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Silver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sky</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TextBackground Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The calculation is not complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The greatest value is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The least value is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number must be a whole number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number must be between %1 and %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The result is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The result would not be exact.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value was not accepted as it was entered.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no color of this name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no field for this.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no such value here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing on the clipboard that fits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These are not %1 numbers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These are not keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This cannot be changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is none of the choices.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a color.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a date.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a language.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a regular expression: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a time zone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not an address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not the number of arguments of the function</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This must be one of %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This would become %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool Tips</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User Fixed Pitch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Violet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>W</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window Background Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window Frame Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window Frame Text Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Z</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” cannot be converted here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is not expected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is not known</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
