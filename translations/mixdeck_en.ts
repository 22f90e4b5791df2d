<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Announcements</name>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n take is exported.</numerusform>
            <numerusform>%n takes are exported.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n take was not exported.</numerusform>
            <numerusform>%n takes were not exported.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>Export %n take</numerusform>
            <numerusform>Export %n takes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n will not be exported:</numerusform>
            <numerusform>%n will not be exported:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n export is still running or waiting. Ending now cancels it.</numerusform>
            <numerusform>%n exports are still running or waiting. Ending now cancels them.</numerusform>
        </translation>
    </message>
</context>
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
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>%n take</numerusform>
            <numerusform>%n takes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferWork</name>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n take is there and verified</numerusform>
            <numerusform>%n takes are there and verified</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n file is right</numerusform>
            <numerusform>%n files are right</numerusform>
        </translation>
    </message>
</context>
</TS>
