<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ExportLevels</name>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>Would clip in 24 bit at %n place</numerusform>
            <numerusform>Would clip in 24 bit at %n places</numerusform>
        </translation>
    </message>
</context>
</TS>
