<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
    <name>BatchVerdictList</name>
    <message numerus="yes">
        <source>%1 of %n unit(s) confirmed, %2 waiting…</source>
        <translation>
            <numerusform>%1 of %n unit confirmed, %2 waiting…</numerusform>
            <numerusform>%1 of %n units confirmed, %2 waiting…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n unit(s) confirmed</source>
        <translation>
            <numerusform>%1 of %n unit confirmed</numerusform>
            <numerusform>%1 of %n units confirmed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MultiEditorHeader</name>
    <message numerus="yes">
        <source>%n unit(s) selected</source>
        <translation>
            <numerusform>%n unit selected</numerusform>
            <numerusform>%n units selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Save to %n unit(s)</source>
        <translation>
            <numerusform>Save to %n unit</numerusform>
            <numerusform>Save to %n units</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NetworksButton</name>
    <message numerus="yes">
        <source>%n network(s)</source>
        <translation>
            <numerusform>%n network</numerusform>
            <numerusform>%n networks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NetworksPopup</name>
    <message numerus="yes">
        <source>%n unit(s)</source>
        <translation>
            <numerusform>%n unit</numerusform>
            <numerusform>%n units</numerusform>
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
<context>
    <name>RestoreReviewDialog</name>
    <message numerus="yes">
        <source>Restoring %n unit(s): %1 answered</source>
        <translation>
            <numerusform>Restoring %n unit: %1 answered</numerusform>
            <numerusform>Restoring %n units: %1 answered</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restored %n unit(s): %1 confirmed</source>
        <translation>
            <numerusform>Restored %n unit: %1 confirmed</numerusform>
            <numerusform>Restored %n units: %1 confirmed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restore %n unit(s)</source>
        <translation>
            <numerusform>Restore %n unit</numerusform>
            <numerusform>Restore %n units</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ScanAddressesDialog</name>
    <message numerus="yes">
        <source>Found %n unit(s)</source>
        <translation>
            <numerusform>Found %n unit</numerusform>
            <numerusform>Found %n units</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SidebarFooter</name>
    <message numerus="yes">
        <source>%n unit(s) known</source>
        <translation>
            <numerusform>%n unit known</numerusform>
            <numerusform>%n units known</numerusform>
        </translation>
    </message>
</context>
</TS>
