<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ActivityPane</name>
    <message>
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Nothing yet: units found and writes sent are listed here.</source>
        <translation>Noch nichts: Gefundene Geräte und gesendete Schreibvorgänge erscheinen hier.</translation>
    </message>
</context>
<context>
    <name>ActivityToggle</name>
    <message>
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message>
        <source>Show or hide the activity log (%1)</source>
        <translation>Aktivitätsprotokoll ein- oder ausblenden (%1)</translation>
    </message>
</context>
<context>
    <name>AddressScan</name>
    <message>
        <source>The range ends before it starts</source>
        <translation>Der Bereich endet, bevor er beginnt</translation>
    </message>
    <message>
        <source>That is %1 addresses; at most %2 can be scanned at once</source>
        <translation>Das sind %1 Adressen; höchstens %2 können auf einmal durchsucht werden</translation>
    </message>
    <message>
        <source>Type a block such as 10.78.5.0/24 or a range such as 10.78.5.10-10.78.5.99</source>
        <translation>Geben Sie einen Block wie 10.78.5.0/24 oder einen Bereich wie 10.78.5.10-10.78.5.99 ein</translation>
    </message>
</context>
<context>
    <name>BackupExport</name>
    <message>
        <source>%1 cannot be written</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s) exported to %1</source>
        <translation>
            <numerusform>%n Gerät nach %1 exportiert</numerusform>
            <numerusform>%n Geräte nach %1 exportiert</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BackupFile</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>unit %1</source>
        <translation>Gerät %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be text</source>
        <translation>„%1“ muss Text sein</translation>
    </message>
    <message>
        <source>&quot;version&quot; must be a whole number</source>
        <translation>„version“ muss eine ganze Zahl sein</translation>
    </message>
    <message>
        <source>version %1 is newer than this program reads (%2)</source>
        <translation>Version %1 ist neuer als die, die dieses Programm liest (%2)</translation>
    </message>
    <message>
        <source>version %1 is not a version of this format</source>
        <translation>Version %1 ist keine Version dieses Formats</translation>
    </message>
    <message>
        <source>&quot;config&quot; must be an object</source>
        <translation>„config“ muss ein Objekt sein</translation>
    </message>
    <message>
        <source>unit %1, key &quot;%2&quot;</source>
        <translation>Gerät %1, Schlüssel „%2“</translation>
    </message>
    <message>
        <source>the value must be text</source>
        <translation>der Wert muss Text sein</translation>
    </message>
    <message>
        <source>must be an object</source>
        <translation>muss ein Objekt sein</translation>
    </message>
    <message>
        <source>&quot;address&quot; &quot;%1&quot; is not an IPv4 address</source>
        <translation>„address“ „%1“ ist keine IPv4-Adresse</translation>
    </message>
    <message>
        <source>must be a JSON object</source>
        <translation>muss ein JSON-Objekt sein</translation>
    </message>
    <message>
        <source>&quot;format&quot; is not &quot;%1&quot;</source>
        <translation>„format“ ist nicht „%1“</translation>
    </message>
    <message>
        <source>&quot;units&quot; must be an array</source>
        <translation>„units“ muss ein Array sein</translation>
    </message>
    <message>
        <source>larger than %1 MiB</source>
        <translation>größer als %1 MiB</translation>
    </message>
    <message>
        <source>not valid JSON (at byte %1)</source>
        <translation>kein gültiges JSON (bei Byte %1)</translation>
    </message>
    <message>
        <source>not valid JSON (a number out of range)</source>
        <translation>kein gültiges JSON (eine Zahl außerhalb des Wertebereichs)</translation>
    </message>
    <message>
        <source>%1: cannot be read</source>
        <translation>%1: kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>BackupFilePicker</name>
    <message>
        <source>Backup files (*.json)</source>
        <translation>Sicherungsdateien (*.json)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>BatchVerdictList</name>
    <message>
        <source>Verdicts of the save</source>
        <translation>Ergebnisse des Speicherns</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n unit(s) confirmed, %2 waiting…</source>
        <translation>
            <numerusform>%1 von %n Gerät bestätigt, %2 ausstehend…</numerusform>
            <numerusform>%1 von %n Geräten bestätigt, %2 ausstehend…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n unit(s) confirmed</source>
        <translation>
            <numerusform>%1 von %n Gerät bestätigt</numerusform>
            <numerusform>%1 von %n Geräten bestätigt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchWriter</name>
    <message>
        <source>Waiting for the unit…</source>
        <translation>Warte auf das Gerät…</translation>
    </message>
    <message>
        <source>Not written: %1</source>
        <translation>Nicht geschrieben: %1</translation>
    </message>
    <message>
        <source>Nothing to change</source>
        <translation>Nichts zu ändern</translation>
    </message>
</context>
<context>
    <name>CommunicationPanel</name>
    <message>
        <source>Communication</source>
        <translation>Kommunikation</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>call password</source>
        <translation>Ruf-Passwort</translation>
    </message>
    <message>
        <source>Scene Level</source>
        <translation>Umgebungspegel</translation>
    </message>
    <message>
        <source>Suppression Level</source>
        <translation>Unterdrückung</translation>
    </message>
    <message>
        <source>Wire2</source>
        <translation>Wire2</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>Base stations</source>
        <translation>Basisstationen</translation>
    </message>
    <message>
        <source>Scanning the network…</source>
        <translation>Netzwerk wird durchsucht…</translation>
    </message>
</context>
<context>
    <name>DetailHeader</name>
    <message>
        <source>Wrong subnet</source>
        <translation>Falsches Subnetz</translation>
    </message>
    <message>
        <source>Address conflict</source>
        <translation>Adresskonflikt</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Discards the edits and shows what the unit last reported</source>
        <translation>Verwirft die Änderungen und zeigt, was das Gerät zuletzt gemeldet hat</translation>
    </message>
    <message>
        <source>Save changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>Sends the changed settings to the unit</source>
        <translation>Sendet die geänderten Einstellungen an das Gerät</translation>
    </message>
    <message>
        <source>unsaved changes</source>
        <translation>ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Import onto this other unit</source>
        <translation>Auf dieses andere Gerät importieren</translation>
    </message>
</context>
<context>
    <name>DetailsPanel</name>
    <message>
        <source>Heard on</source>
        <translation>Empfangen über</translation>
    </message>
    <message>
        <source>Serials seen</source>
        <translation>Gesehene Seriennummern</translation>
    </message>
    <message>
        <source>Device details</source>
        <translation>Gerätedetails</translation>
    </message>
    <message>
        <source>Last save</source>
        <translation>Letztes Speichern</translation>
    </message>
    <message>
        <source>First seen</source>
        <translation>Zuerst gesehen</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>Zuletzt gesehen</translation>
    </message>
</context>
<context>
    <name>Device</name>
    <message>
        <source>KT400 ·%1</source>
        <translation>KT400 ·%1</translation>
    </message>
</context>
<context>
    <name>DeviceEditor</name>
    <message>
        <source>Cannot send: %1</source>
        <translation>Senden nicht möglich: %1</translation>
    </message>
</context>
<context>
    <name>DeviceListModel</name>
    <message>
        <source>last seen %1</source>
        <translation>zuletzt gesehen %1</translation>
    </message>
</context>
<context>
    <name>DeviceRow</name>
    <message>
        <source>wrong subnet</source>
        <translation>falsches Subnetz</translation>
    </message>
    <message>
        <source>address conflict</source>
        <translation>Adresskonflikt</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
</context>
<context>
    <name>EarlierLog</name>
    <message>
        <source>—— %1 ——</source>
        <comment>a date line above a day&apos;s earlier activity</comment>
        <translation>—— %1 ——</translation>
    </message>
    <message>
        <source>—— %1 · this run ——</source>
        <comment>the line between earlier runs&apos; activity and this run&apos;s</comment>
        <translation>—— %1 · dieser Lauf ——</translation>
    </message>
</context>
<context>
    <name>EditorHeader</name>
    <message>
        <source>Ch %1</source>
        <translation>Kan. %1</translation>
    </message>
    <message>
        <source>Ch –</source>
        <translation>Kan. –</translation>
    </message>
    <message>
        <source>fw %1</source>
        <translation>FW %1</translation>
    </message>
    <message>
        <source>Online</source>
        <translation>Online</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Apply network settings to %1?</source>
        <translation>Netzwerkeinstellungen auf %1 anwenden?</translation>
    </message>
    <message>
        <source>New: IP %1, mask %2, gateway %3.</source>
        <translation>Neu: IP %1, Maske %2, Gateway %3.</translation>
    </message>
    <message>
        <source>If the IP changes, the unit reappears in the list under its new address. A wrong value can strip it off-network (serial DB9 recovery).</source>
        <translation>Ändert sich die IP, erscheint das Gerät unter seiner neuen Adresse wieder in der Liste. Ein falscher Wert kann es vom Netzwerk trennen (Wiederherstellung über die serielle DB9-Schnittstelle).</translation>
    </message>
    <message>
        <source>Tally</source>
        <translation>Tally</translation>
    </message>
    <message>
        <source>Communication</source>
        <translation>Kommunikation</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
</context>
<context>
    <name>EditorMenu</name>
    <message>
        <source>Settings file actions</source>
        <translation>Aktionen für Einstellungsdateien</translation>
    </message>
    <message>
        <source>Export settings…</source>
        <translation>Einstellungen exportieren…</translation>
    </message>
    <message>
        <source>Export settings</source>
        <translation>Einstellungen exportieren</translation>
    </message>
    <message>
        <source>Import settings…</source>
        <translation>Einstellungen importieren…</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>Einstellungen importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Forget this unit…</source>
        <translation>Dieses Gerät vergessen…</translation>
    </message>
    <message>
        <source>Forget this unit</source>
        <translation>Dieses Gerät vergessen</translation>
    </message>
</context>
<context>
    <name>EditorOptions</name>
    <message>
        <source>0 · Quiet place (whisper)</source>
        <translation>0 · Ruhiger Ort (Flüstern)</translation>
    </message>
    <message>
        <source>1 · Most scenes (speak loudly)</source>
        <translation>1 · Die meisten Umgebungen (laut sprechen)</translation>
    </message>
    <message>
        <source>2 · Very noisy (roar)</source>
        <translation>2 · Sehr laut (Brüllen)</translation>
    </message>
    <message>
        <source>3 · Deafening (loud voice)</source>
        <translation>3 · Ohrenbetäubend (laute Stimme)</translation>
    </message>
    <message>
        <source>4 · Deafening (extreme)</source>
        <translation>4 · Ohrenbetäubend (extrem)</translation>
    </message>
    <message>
        <source>0 · Off</source>
        <translation>0 · Aus</translation>
    </message>
    <message>
        <source>1 · 1%</source>
        <translation>1 · 1 %</translation>
    </message>
    <message>
        <source>2 · 2%</source>
        <translation>2 · 2 %</translation>
    </message>
    <message>
        <source>3 · 3%</source>
        <translation>3 · 3 %</translation>
    </message>
    <message>
        <source>4 · 4%</source>
        <translation>4 · 4 %</translation>
    </message>
    <message>
        <source>5 · 5%</source>
        <translation>5 · 5 %</translation>
    </message>
    <message>
        <source>Cameras 1–12</source>
        <translation>Kameras 1–12</translation>
    </message>
    <message>
        <source>Cameras 13–24</source>
        <translation>Kameras 13–24</translation>
    </message>
    <message>
        <source>Cameras 25–36</source>
        <translation>Kameras 25–36</translation>
    </message>
    <message>
        <source>Cameras 37–40</source>
        <translation>Kameras 37–40</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>Select a base station</source>
        <translation>Basisstation auswählen</translation>
    </message>
    <message>
        <source>Pick a unit from the list, or add one by IP.</source>
        <translation>Wählen Sie ein Gerät aus der Liste oder fügen Sie eines per IP hinzu.</translation>
    </message>
</context>
<context>
    <name>FleetActions</name>
    <message>
        <source>Export all units</source>
        <translation>Alle Geräte exportieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Restore from backup</source>
        <translation>Aus Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
</context>
<context>
    <name>FleetMenuButton</name>
    <message>
        <source>More actions</source>
        <translation>Weitere Aktionen</translation>
    </message>
    <message>
        <source>Export all units…</source>
        <translation>Alle Geräte exportieren…</translation>
    </message>
    <message>
        <source>Restore from backup…</source>
        <translation>Aus Sicherung wiederherstellen…</translation>
    </message>
    <message>
        <source>Scan addresses…</source>
        <translation>Adressen durchsuchen…</translation>
    </message>
    <message>
        <source>Site store…</source>
        <translation>Standort-Speicher…</translation>
    </message>
</context>
<context>
    <name>ForgetUnitDialog</name>
    <message>
        <source>Forget %1?</source>
        <translation>%1 vergessen?</translation>
    </message>
    <message>
        <source>The unit at %1 leaves the list, with the configuration history and the writes VornLink remembers of it. Nothing is sent to the unit. A unit that is online comes back as soon as it answers again.</source>
        <translation>Das Gerät unter %1 verschwindet aus der Liste, mit dem Konfigurationsverlauf und den Schreibvorgängen, die VornLink sich von ihm gemerkt hat. An das Gerät wird nichts gesendet. Ein Gerät, das online ist, erscheint wieder, sobald es erneut antwortet.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
</context>
<context>
    <name>HistoryPanel</name>
    <message>
        <source>Configuration history</source>
        <translation>Verlauf der Konfiguration</translation>
    </message>
    <message>
        <source>Show passwords</source>
        <translation>Passwörter zeigen</translation>
    </message>
    <message>
        <source>Nothing stored for this unit yet.</source>
        <translation>Für dieses Gerät ist noch nichts gespeichert.</translation>
    </message>
    <message>
        <source>VornLink is not remembering this site.</source>
        <translation>VornLink merkt sich diesen Standort nicht.</translation>
    </message>
</context>
<context>
    <name>HistoryRow</name>
    <message>
        <source>Restore this version…</source>
        <translation>Diese Version wiederherstellen…</translation>
    </message>
</context>
<context>
    <name>LabeledField</name>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
</context>
<context>
    <name>LastSeen</name>
    <message>
        <source>just now</source>
        <translation>gerade eben</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>gestern</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>VornLink</source>
        <translation>VornLink</translation>
    </message>
</context>
<context>
    <name>MultiEditorHeader</name>
    <message>
        <source>Fields the units disagree on show “Mixed”. Only the fields you change are written; each unit keeps the rest of its own settings.</source>
        <translation>Felder mit unterschiedlichen Werten zeigen „Gemischt“. Nur geänderte Felder werden geschrieben; jedes Gerät behält seine übrigen Einstellungen.</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Reload the selected units, dropping the changes</source>
        <translation>Ausgewählte Geräte neu laden und die Änderungen verwerfen</translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s) selected</source>
        <translation>
            <numerusform>%n Gerät ausgewählt</numerusform>
            <numerusform>%n Geräte ausgewählt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Save to %n unit(s)</source>
        <translation>
            <numerusform>In %n Gerät speichern</numerusform>
            <numerusform>In %n Geräten speichern</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NetworkConfirmDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>NetworkPanel</name>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Changing IP / mask / gateway can take the unit off-network — recovery then needs the serial DB9 tool. Applied separately, with confirmation.</source>
        <translation>Eine Änderung von IP, Maske oder Gateway kann das Gerät vom Netzwerk trennen – die Wiederherstellung braucht dann das serielle DB9-Werkzeug. Wird getrennt angewendet, mit Bestätigung.</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Subnet mask</source>
        <translation>Subnetzmaske</translation>
    </message>
    <message>
        <source>Gateway</source>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>Apply network…</source>
        <translation>Netzwerk anwenden…</translation>
    </message>
    <message>
        <source>invalid IPv4</source>
        <translation>ungültige IPv4</translation>
    </message>
    <message>
        <source>Not in the subnet of %1: saves go out through %1, and the unit needs an address in %2.</source>
        <translation>Nicht im Subnetz von %1: Speichervorgänge werden über %1 gesendet, und das Gerät braucht eine Adresse in %2.</translation>
    </message>
</context>
<context>
    <name>NetworksButton</name>
    <message>
        <source>No network</source>
        <translation>Kein Netzwerk</translation>
    </message>
    <message>
        <source>Shows the networks discovery goes out on</source>
        <translation>Zeigt die Netzwerke, in die die Suche gesendet wird</translation>
    </message>
    <message numerus="yes">
        <source>%n network(s)</source>
        <translation>
            <numerusform>%n Netzwerk</numerusform>
            <numerusform>%n Netzwerke</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NetworksPopup</name>
    <message>
        <source>Discovery goes out on</source>
        <translation>Die Suche wird gesendet in</translation>
    </message>
    <message>
        <source>No network: connect a cable or bring a link up. Until then discovery goes where the system routes it.</source>
        <translation>Kein Netzwerk: Schließen Sie ein Kabel an oder aktivieren Sie eine Verbindung. Bis dahin geht die Suche dorthin, wohin das System sie leitet.</translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s)</source>
        <translation>
            <numerusform>%n Gerät</numerusform>
            <numerusform>%n Geräte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Picker</name>
    <message>
        <source>no value chosen</source>
        <translation>kein Wert gewählt</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
</context>
<context>
    <name>RestoreNetworkConfirm</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>RestoreReview</name>
    <message numerus="yes">
        <source>Apply network settings to %n unit(s)?</source>
        <translation>
            <numerusform>Netzwerkeinstellungen auf %n Gerät anwenden?</numerusform>
            <numerusform>Netzwerkeinstellungen auf %n Geräte anwenden?</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>matched by serial</source>
        <translation>über die Seriennummer zugeordnet</translation>
    </message>
    <message>
        <source>matched by address</source>
        <translation>über die Adresse zugeordnet</translation>
    </message>
    <message>
        <source>%1, now at %2</source>
        <translation>%1, jetzt unter %2</translation>
    </message>
    <message>
        <source>%1 (an earlier unit of the file matched it too)</source>
        <translation>%1 (ein früheres Gerät der Datei passte ebenfalls)</translation>
    </message>
    <message>
        <source>Another unit answers at %1 (serial %2)</source>
        <translation>Ein anderes Gerät antwortet unter %1 (Seriennummer %2)</translation>
    </message>
</context>
<context>
    <name>RestoreReviewDialog</name>
    <message>
        <source>Restore from backup</source>
        <translation>Aus Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>This file cannot be restored: %1</source>
        <translation>Diese Datei kann nicht wiederhergestellt werden: %1</translation>
    </message>
    <message>
        <source>Include network settings</source>
        <translation>Netzwerkeinstellungen einbeziehen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>Restoring %n unit(s): %1 answered</source>
        <translation>
            <numerusform>%n Gerät wird wiederhergestellt: %1 geantwortet</numerusform>
            <numerusform>%n Geräte werden wiederhergestellt: %1 geantwortet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restored %n unit(s): %1 confirmed</source>
        <translation>
            <numerusform>%n Gerät wiederhergestellt: %1 bestätigt</numerusform>
            <numerusform>%n Geräte wiederhergestellt: %1 bestätigt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restore %n unit(s)</source>
        <translation>
            <numerusform>%n Gerät wiederherstellen</numerusform>
            <numerusform>%n Geräte wiederherstellen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RestoreRow</name>
    <message>
        <source>Restore %1</source>
        <translation>%1 wiederherstellen</translation>
    </message>
    <message>
        <source>Equal: nothing to restore</source>
        <translation>Gleich: nichts wiederherzustellen</translation>
    </message>
    <message>
        <source>Left out (network): %1</source>
        <translation>Ausgelassen (Netzwerk): %1</translation>
    </message>
    <message>
        <source>Restore onto this other unit</source>
        <translation>Auf dieses andere Gerät wiederherstellen</translation>
    </message>
</context>
<context>
    <name>SaveVerdict</name>
    <message>
        <source>Saved · confirmed</source>
        <translation>Gespeichert · bestätigt</translation>
    </message>
    <message>
        <source>Not confirmed: %1</source>
        <translation>Nicht bestätigt: %1</translation>
    </message>
    <message>
        <source>No answer after saving</source>
        <translation>Keine Antwort nach dem Speichern</translation>
    </message>
    <message>
        <source>Moved to %1</source>
        <translation>Umgezogen nach %1</translation>
    </message>
</context>
<context>
    <name>SaveVerdictChip</name>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>ScanAddressesDialog</name>
    <message>
        <source>Scan addresses</source>
        <translation>Adressen durchsuchen</translation>
    </message>
    <message>
        <source>Units on a subnet behind a router do not hear a broadcast. Each address is asked by itself (at most %1).</source>
        <translation>Geräte in einem Subnetz hinter einem Router hören keinen Broadcast. Jede Adresse wird einzeln gefragt (höchstens %1).</translation>
    </message>
    <message>
        <source>10.78.5.0/24 or 10.78.5.10-10.78.5.99</source>
        <translation>10.78.5.0/24 oder 10.78.5.10-10.78.5.99</translation>
    </message>
    <message>
        <source>Addresses to scan</source>
        <translation>Zu durchsuchende Adressen</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Asked %1 of %2 addresses…</source>
        <translation>%1 von %2 Adressen gefragt…</translation>
    </message>
    <message numerus="yes">
        <source>Found %n unit(s)</source>
        <translation>
            <numerusform>%n Gerät gefunden</numerusform>
            <numerusform>%n Geräte gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Durchsuchen</translation>
    </message>
</context>
<context>
    <name>SegmentBar</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>SidebarFooter</name>
    <message>
        <source>Add by IP</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Return queries this address</source>
        <translation>Eingabetaste fragt diese Adresse ab</translation>
    </message>
    <message>
        <source>Query</source>
        <translation>Abfragen</translation>
    </message>
    <message>
        <source>Asks the unit at the address in the field to answer</source>
        <translation>Fordert das Gerät unter der eingegebenen Adresse zur Antwort auf</translation>
    </message>
    <message>
        <source>Discover</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Asks every unit on the networks to answer</source>
        <translation>Fordert alle Geräte in den Netzwerken zur Antwort auf</translation>
    </message>
    <message>
        <source>not an IPv4 address</source>
        <translation>keine IPv4-Adresse</translation>
    </message>
    <message numerus="yes">
        <source>%n unit(s) known</source>
        <translation>
            <numerusform>%n Gerät bekannt</numerusform>
            <numerusform>%n Geräte bekannt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SiteStoreDialog</name>
    <message>
        <source>Site store</source>
        <translation>Standort-Speicher</translation>
    </message>
    <message>
        <source>Where this window remembers units and their history, from its next start: a site file, or a PostgreSQL server shared by the site&apos;s workstations (the password in ~/.pgpass). Empty: this computer&apos;s own file.</source>
        <translation>Wo sich dieses Fenster ab dem nächsten Start Geräte und ihre Historie merkt: eine Standortdatei oder ein PostgreSQL-Server, den sich die Arbeitsplätze des Standorts teilen (das Passwort in ~/.pgpass). Leer: die eigene Datei dieses Computers.</translation>
    </message>
    <message>
        <source>postgresql://user@host/database</source>
        <translation>postgresql://benutzer@host/datenbank</translation>
    </message>
    <message>
        <source>Site file or server</source>
        <translation>Standortdatei oder Server</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>Stepper</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
    <message>
        <source>Decrease</source>
        <translation>Verringern</translation>
    </message>
    <message>
        <source>Increase</source>
        <translation>Erhöhen</translation>
    </message>
</context>
<context>
    <name>SwitcherCatalog</name>
    <message>
        <source>Band %1 / Model %2</source>
        <translation>Band %1 / Modell %2</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
</context>
<context>
    <name>TallyPanel</name>
    <message>
        <source>Tally source</source>
        <translation>Tally-Quelle</translation>
    </message>
    <message>
        <source>A base station drives 12 tally channels at a time. Tally bank selects which 12 — 13–24 for cameras beyond 12. One unit can’t span more than 12 at once (firmware limit); use a second base station on the next bank.</source>
        <translation>Eine Basisstation bedient 12 Tally-Kanäle gleichzeitig. Die Tally-Bank wählt, welche 12 — 13–24 für Kameras über 12. Ein Gerät kann nicht mehr als 12 zugleich abdecken (Firmware-Grenze); nehmen Sie eine zweite Basisstation auf der nächsten Bank.</translation>
    </message>
    <message>
        <source>ATEM IP</source>
        <translation>ATEM-IP</translation>
    </message>
    <message>
        <source>ATEM port</source>
        <translation>ATEM-Port</translation>
    </message>
    <message>
        <source>Switcher</source>
        <translation>Bildmischer</translation>
    </message>
    <message>
        <source>Tally Channel</source>
        <translation>Tally-Kanal</translation>
    </message>
    <message>
        <source>Tally / GPIO</source>
        <translation>Tally / GPIO</translation>
    </message>
    <message>
        <source>invalid IPv4</source>
        <translation>ungültige IPv4-Adresse</translation>
    </message>
</context>
<context>
    <name>TallySection</name>
    <message>
        <source>type %1</source>
        <translation>Typ %1</translation>
    </message>
    <message>
        <source>gpio %1</source>
        <translation>GPIO %1</translation>
    </message>
</context>
<context>
    <name>UnitHistory</name>
    <message>
        <source>yyyy-MM-dd HH:mm:ss</source>
        <comment>the time of a configuration version</comment>
        <translation>dd.MM.yyyy HH:mm:ss</translation>
    </message>
    <message>
        <source>First seen</source>
        <translation>Zuerst gesehen</translation>
    </message>
    <message>
        <source>Changed outside VornLink</source>
        <translation>Außerhalb von VornLink geändert</translation>
    </message>
    <message>
        <source>confirmed</source>
        <translation>bestätigt</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>umgezogen</translation>
    </message>
    <message>
        <source>not confirmed: %1</source>
        <translation>nicht bestätigt: %1</translation>
    </message>
    <message>
        <source>Saved from VornLink by %1 on %2 · %3</source>
        <translation>Aus VornLink gespeichert von %1 auf %2 · %3</translation>
    </message>
    <message>
        <source>Set by %1 by %2 on %3 · %4</source>
        <translation>Gesetzt mit %1 von %2 auf %3 · %4</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>First seen on %1</source>
        <translation>Zuerst gesehen auf %1</translation>
    </message>
    <message>
        <source>Changed outside VornLink · heard on %1</source>
        <translation>Außerhalb von VornLink geändert · gehört auf %1</translation>
    </message>
</context>
<context>
    <name>UnitRowMenu</name>
    <message>
        <source>Forget this unit…</source>
        <translation>Dieses Gerät vergessen…</translation>
    </message>
    <message>
        <source>Forget this unit</source>
        <translation>Dieses Gerät vergessen</translation>
    </message>
</context>
<context>
    <name>UnitTransfer</name>
    <message>
        <source>No unit to export</source>
        <translation>Kein Gerät zum Exportieren</translation>
    </message>
    <message>
        <source>%1 cannot be written</source>
        <translation>%1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Settings exported to %1</source>
        <translation>Einstellungen nach %1 exportiert</translation>
    </message>
    <message>
        <source>No unit to import into</source>
        <translation>Kein Gerät, in das importiert werden kann</translation>
    </message>
    <message>
        <source>%1 holds no units</source>
        <translation>%1 enthält keine Geräte</translation>
    </message>
    <message>
        <source>%1 holds several units and this unit reports no serial to choose by</source>
        <translation>%1 enthält mehrere Geräte, und dieses Gerät meldet keine Seriennummer, nach der gewählt werden könnte</translation>
    </message>
    <message>
        <source>%1 holds several units, none with serial %2</source>
        <translation>%1 enthält mehrere Geräte, keines mit der Seriennummer %2</translation>
    </message>
    <message>
        <source>Settings of %1 loaded from %2: review them, then save</source>
        <translation>Einstellungen von %1 aus %2 geladen: prüfen Sie sie und speichern Sie dann</translation>
    </message>
    <message>
        <source>This unit has not answered yet; there is nothing to export</source>
        <translation>Dieses Gerät hat noch nicht geantwortet; es gibt nichts zu exportieren</translation>
    </message>
    <message>
        <source>%1 holds the settings of another unit (serial %2); this unit reports serial %3</source>
        <translation>%1 enthält die Einstellungen eines anderen Geräts (Seriennummer %2); dieses Gerät meldet die Seriennummer %3</translation>
    </message>
    <message>
        <source>Not imported (no field here): %1</source>
        <translation>Nicht importiert (hier kein Feld): %1</translation>
    </message>
</context>
<context>
    <name>ValueSafety</name>
    <message>
        <source>a line feed (LF)</source>
        <translation>einen Zeilenvorschub (LF)</translation>
    </message>
    <message>
        <source>a carriage return (CR)</source>
        <translation>einen Wagenrücklauf (CR)</translation>
    </message>
    <message>
        <source>a NUL character</source>
        <translation>ein NUL-Zeichen</translation>
    </message>
    <message>
        <source>a key is empty</source>
        <translation>ein Schlüssel ist leer</translation>
    </message>
    <message>
        <source>key &quot;%1&quot; holds a colon (:)</source>
        <translation>Schlüssel „%1“ enthält einen Doppelpunkt (:)</translation>
    </message>
    <message>
        <source>key &quot;%1&quot; holds %2</source>
        <translation>Schlüssel „%1“ enthält %2</translation>
    </message>
    <message>
        <source>the value of %1 holds %2</source>
        <translation>der Wert von %1 enthält %2</translation>
    </message>
</context>
<context>
    <name>VornClient</name>
    <message>
        <source>starting…</source>
        <translation>startet…</translation>
    </message>
    <message>
        <source>cannot bind UDP %1 (in use?)</source>
        <translation>UDP %1 kann nicht gebunden werden (belegt?)</translation>
    </message>
    <message>
        <source>listening on %1</source>
        <translation>empfängt auf %1</translation>
    </message>
    <message>
        <source>found %1</source>
        <translation>gefunden: %1</translation>
    </message>
    <message>
        <source>write refused → %1: %2</source>
        <translation>Schreiben abgelehnt → %1: %2</translation>
    </message>
    <message>
        <source>write → %1: %2</source>
        <translation>Schreiben → %1: %2</translation>
    </message>
    <message>
        <source>write refused → %1: not an IPv4 address</source>
        <translation>Schreiben abgelehnt → %1: keine IPv4-Adresse</translation>
    </message>
    <message>
        <source>forgot %1</source>
        <translation>vergessen: %1</translation>
    </message>
</context>
<context>
    <name>VornLink</name>
    <message>
        <source>vornlink: no display for the window (DISPLAY, WAYLAND_DISPLAY and QT_QPA_PLATFORM are unset); &apos;vornlink --selftest&apos; runs without one
</source>
        <translation>vornlink: kein Bildschirm für das Fenster (DISPLAY, WAYLAND_DISPLAY und QT_QPA_PLATFORM sind nicht gesetzt); &apos;vornlink --selftest&apos; läuft ohne
</translation>
    </message>
    <message>
        <source>vornlink: the window could not be created
</source>
        <translation>vornlink: das Fenster konnte nicht erstellt werden
</translation>
    </message>
</context>
<context>
    <name>VornLink::WindowSite</name>
    <message>
        <source>The site file was damaged; kept as %1 and started a new one</source>
        <translation>Die Standortdatei war beschädigt; sie wurde als %1 aufbewahrt und eine neue begonnen</translation>
    </message>
    <message>
        <source>This site file is from a newer VornLink; changes are not remembered</source>
        <translation>Diese Standortdatei stammt von einem neueren VornLink; Änderungen werden nicht gemerkt</translation>
    </message>
    <message>
        <source>Not remembering: %1</source>
        <translation>Wird nicht gemerkt: %1</translation>
    </message>
    <message>
        <source>Site server unreachable: %1</source>
        <translation>Standort-Server nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>The site server holds the store of a newer VornLink; changes are not remembered</source>
        <translation>Der Standort-Server enthält den Speicher eines neueren VornLink; Änderungen werden nicht gemerkt</translation>
    </message>
    <message>
        <source>%1 on %2 wrote %3 → %4 · %5</source>
        <translation>%1 auf %2 schrieb %3 → %4 · %5</translation>
    </message>
</context>
<context>
    <name>WriteCheck</name>
    <message>
        <source>%1: confirmed</source>
        <translation>%1: bestätigt</translation>
    </message>
    <message>
        <source>%1: wrote %2, unit reports %3</source>
        <translation>%1: %2 geschrieben, Gerät meldet %3</translation>
    </message>
    <message>
        <source>%1: wrote %2, unit reports no value</source>
        <translation>%1: %2 geschrieben, Gerät meldet keinen Wert</translation>
    </message>
    <message>
        <source>%1: wrote %2, no reply</source>
        <translation>%1: %2 geschrieben, keine Antwort</translation>
    </message>
</context>
</TS>
