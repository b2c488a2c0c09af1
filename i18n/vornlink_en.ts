<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>BackupExport</name>
    <message numerus="yes">
        <source>%n unit(s) exported to %1</source>
        <translation>
            <numerusform>%n unit exported to %1</numerusform>
            <numerusform>%n units exported to %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RestoreReview</name>
    <message numerus="yes">
        <source>Apply network settings to %n unit(s)?</source>
        <translation>
            <numerusform>Apply network settings to %n unit?</numerusform>
            <numerusform>Apply network settings to %n units?</numerusform>
        </translation>
    </message>
</context>
</TS>
