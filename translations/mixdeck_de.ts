<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutVC</name>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Desktop companion of the TARN J4 recorder</source>
        <translation>Desktop-Begleiter des Rekorders TARN J4</translation>
    </message>
    <message>
        <source>Copyright 2026 The Mixdeck developers
MIT license</source>
        <translation>Copyright 2026 The Mixdeck developers
MIT-Lizenz</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Copy details</source>
        <translation>Angaben kopieren</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>AngleViewer</name>
    <message>
        <source>Stereo width</source>
        <translation>Stereobreite</translation>
    </message>
    <message>
        <source>MONO</source>
        <translation>MONO</translation>
    </message>
    <message>
        <source>30°</source>
        <translation>30°</translation>
    </message>
    <message>
        <source>60°</source>
        <translation>60°</translation>
    </message>
    <message>
        <source>90°</source>
        <translation>90°</translation>
    </message>
    <message>
        <source>120°</source>
        <translation>120°</translation>
    </message>
    <message>
        <source>150°</source>
        <translation>150°</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
</context>
<context>
    <name>Announcements</name>
    <message>
        <source>The recorder is connected.</source>
        <translation>Der Rekorder ist verbunden.</translation>
    </message>
    <message>
        <source>The recorder is no longer connected.</source>
        <translation>Der Rekorder ist nicht mehr verbunden.</translation>
    </message>
    <message>
        <source>%1 is exported.</source>
        <translation>%1 ist exportiert.</translation>
    </message>
    <message>
        <source>%1 of %2 takes are exported.</source>
        <translation>%1 von %2 Takes sind exportiert.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n Take ist exportiert.</numerusform>
            <numerusform>%n Takes sind exportiert.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchChoices</name>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 Bit linear</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 Bit Float</translation>
    </message>
    <message>
        <source>Normalize each to full scale</source>
        <translation>Jeden auf Vollaussteuerung normalisieren</translation>
    </message>
    <message>
        <source>Each to a loudness</source>
        <translation>Jeden auf Ziellautheit</translation>
    </message>
    <message>
        <source>Beside each take</source>
        <translation>Neben jeden Take</translation>
    </message>
    <message>
        <source>Into a folder</source>
        <translation>In einen Ordner</translation>
    </message>
    <message>
        <source>Folder for the exports</source>
        <translation>Ordner für die Exporte</translation>
    </message>
    <message>
        <source>Where an export exists</source>
        <translation>Wenn ein Export vorhanden ist</translation>
    </message>
    <message>
        <source>Skip the take</source>
        <translation>Den Take auslassen</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Number the new one</source>
        <translation>Den neuen nummerieren</translation>
    </message>
    <message>
        <source>Each at its remembered width and gain</source>
        <translation>Jeden mit seiner gemerkten Breite und Verstärkung</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Aufnahmezeit und Marker behalten</translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message>
        <source>One take was not exported.</source>
        <translation>Ein Take wurde nicht exportiert.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n Take wurde nicht exportiert.</numerusform>
            <numerusform>%n Takes wurden nicht exportiert.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>%1 exists</source>
        <translation>%1 ist vorhanden</translation>
    </message>
    <message>
        <source>%1 is itself among the takes</source>
        <translation>%1 ist selbst unter den Takes</translation>
    </message>
    <message>
        <source>%1 is about to be written</source>
        <translation>%1 wird gleich geschrieben</translation>
    </message>
    <message>
        <source>%1 is to be the export of %2</source>
        <translation>%1 soll der Export von %2 werden</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>%n Take exportieren</numerusform>
            <numerusform>%n Takes exportieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Takes that will not be exported</source>
        <translation>Takes, die nicht exportiert werden</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>Stereobreite</translation>
    </message>
    <message>
        <source>%1° for all</source>
        <translation>%1° für alle</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>%1 exportieren</translation>
    </message>
    <message>
        <source>To %1 LUFS</source>
        <translation>Auf %1 LUFS</translation>
    </message>
    <message>
        <source>%1, of %2 that are free</source>
        <translation>%1, frei sind %2</translation>
    </message>
    <message>
        <source>The takes cannot be looked at: %1.</source>
        <translation>Die Takes lassen sich nicht untersuchen: %1.</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Eine Lautheit ist eine Zahl von −70 bis 0.</translation>
    </message>
    <message>
        <source>There is too little room: the last of them will not be written</source>
        <translation>Es ist zu wenig Platz: Die letzten werden nicht geschrieben</translation>
    </message>
    <message>
        <source>Samples of some of them export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Samples einiger Takes werden als Rauschen exportiert: Der Rekorder schreibt 24 Bit oder 32 Bit Float</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Über 4 GiB: wird als RF64 geschrieben, das nicht jedes Programm liest</translation>
    </message>
    <message>
        <source>One will not be exported:</source>
        <translation>Einer wird nicht exportiert:</translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n wird nicht exportiert:</numerusform>
            <numerusform>%n werden nicht exportiert:</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>As remembered, else %1</source>
        <translation>Wie gemerkt, sonst %1</translation>
    </message>
</context>
<context>
    <name>BrowserPane</name>
    <message>
        <source>Looking for “%1”… (Esc gives up)</source>
        <translation>„%1“ wird gesucht … (Esc bricht ab)</translation>
    </message>
    <message>
        <source>Open folder, now %1</source>
        <translation>Ordner öffnen, jetzt %1</translation>
    </message>
</context>
<context>
    <name>BrowserView</name>
    <message>
        <source>Go up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Current folder</source>
        <translation>Aktueller Ordner</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>CardDesk</name>
    <message>
        <source>The card “%1” holds recordings. “Copy card…” in the menu brings them home.</source>
        <translation>Auf der Karte „%1“ sind Aufnahmen. „Karte kopieren …“ im Menü holt sie auf den Rechner.</translation>
    </message>
    <message>
        <source>Copy card</source>
        <translation>Karte kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>Takes</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Into</source>
        <translation>Nach</translation>
    </message>
    <message>
        <source>Verify folder</source>
        <translation>Ordner prüfen</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Files that are not right</source>
        <translation>Dateien, die nicht stimmen</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>ClipLamp</name>
    <message>
        <source>over full scale</source>
        <translation>über Vollaussteuerung</translation>
    </message>
    <message>
        <source>not over full scale</source>
        <translation>nicht über Vollaussteuerung</translation>
    </message>
</context>
<context>
    <name>CorrelationBar</name>
    <message>
        <source>Correlation</source>
        <translation>Korrelation</translation>
    </message>
</context>
<context>
    <name>CostView</name>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Lautheit</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>True Peak</translation>
    </message>
</context>
<context>
    <name>DevicePane</name>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Ver. %1</source>
        <translation>Ver. %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>a size and its unit</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>GB</translation>
    </message>
    <message>
        <source>%1 / %2 Used</source>
        <translation>%1 / %2 belegt</translation>
    </message>
</context>
<context>
    <name>DeviceView</name>
    <message>
        <source>Simulated recorder</source>
        <translation>Simulierter Rekorder</translation>
    </message>
    <message>
        <source>No recorder can be found here.</source>
        <translation>Kein Rekorder auffindbar.</translation>
    </message>
    <message>
        <source>Card used</source>
        <translation>Belegung der Karte</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>Verbleibend</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Batterie</translation>
    </message>
    <message>
        <source>Auto power off</source>
        <translation>Abschaltautomatik</translation>
    </message>
    <message>
        <source>%1, no recorder connected</source>
        <translation>%1, kein Rekorder verbunden</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>Der Rekorder</translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message>
        <source>Takes are still being copied. What is copied stays; the next copy goes on from there.</source>
        <translation>Es werden noch Takes kopiert. Was kopiert ist, bleibt; die nächste Kopie macht dort weiter.</translation>
    </message>
    <message>
        <source>Keep copying</source>
        <translation>Weiterkopieren</translation>
    </message>
    <message>
        <source>Stop and quit</source>
        <translation>Anhalten und beenden</translation>
    </message>
    <message>
        <source>Keep working</source>
        <translation>Weiterarbeiten</translation>
    </message>
    <message>
        <source>Stop all and quit</source>
        <translation>Alles anhalten und beenden</translation>
    </message>
    <message>
        <source>An export is still running. Ending now cancels it.</source>
        <translation>Ein Export läuft noch. Beenden bricht ihn ab.</translation>
    </message>
    <message>
        <source>Keep exporting</source>
        <translation>Weiterexportieren</translation>
    </message>
    <message>
        <source>Cancel export and quit</source>
        <translation>Export abbrechen und beenden</translation>
    </message>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n Export läuft oder wartet noch. Beenden bricht ihn ab.</numerusform>
            <numerusform>%n Exporte laufen oder warten noch. Beenden bricht sie ab.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel exports and quit</source>
        <translation>Exporte abbrechen und beenden</translation>
    </message>
</context>
<context>
    <name>ExportDesk</name>
    <message>
        <source>%1 was not exported: %2.</source>
        <translation>%1 wurde nicht exportiert: %2.</translation>
    </message>
    <message>
        <source>Fail to open.</source>
        <translation>Öffnen fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Speichern fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>ExportFacts</name>
    <message>
        <source>Channels as recorded</source>
        <translation>Kanäle wie aufgenommen</translation>
    </message>
    <message>
        <source>To full scale</source>
        <translation>Auf Vollaussteuerung</translation>
    </message>
    <message>
        <source>These %1-bit samples export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Diese %1-Bit-Samples werden als Rauschen exportiert: Der Rekorder schreibt 24 Bit oder 32 Bit Float</translation>
    </message>
    <message>
        <source>Only %1 free in this folder</source>
        <translation>Nur %1 frei in diesem Ordner</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Über 4 GiB: wird als RF64 geschrieben, das nicht jedes Programm liest</translation>
    </message>
</context>
<context>
    <name>ExportLevels</name>
    <message>
        <source>Would clip in 24 bit</source>
        <translation>Würde bei 24 Bit übersteuern</translation>
    </message>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>Würde bei 24 Bit an %n Stelle übersteuern</numerusform>
            <numerusform>Würde bei 24 Bit an %n Stellen übersteuern</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>%1 wird exportiert</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>nach %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>Wird abgebrochen</translation>
    </message>
</context>
<context>
    <name>ExportVC</name>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>Stereobreite</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>Dateigröße</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Lautheit</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>True Peak</translation>
    </message>
    <message>
        <source>Normalize to full scale</source>
        <translation>Auf Vollaussteuerung normalisieren</translation>
    </message>
    <message>
        <source>Selection only</source>
        <translation>Nur die Auswahl</translation>
    </message>
    <message>
        <source>To a loudness</source>
        <translation>Auf Ziellautheit</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 Bit Float</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 Bit linear</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Eine Lautheit ist eine Zahl von −70 bis 0.</translation>
    </message>
    <message>
        <source>Silence, and what is shorter than 0.4 s, has no loudness.</source>
        <translation>Stille und was kürzer als 0,4 s ist, hat keine Lautheit.</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>The take cannot be read, so its loudness is not known.</source>
        <translation>Der Take ist nicht lesbar, daher ist seine Lautheit nicht bekannt.</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Aufnahmezeit und Marker behalten</translation>
    </message>
</context>
<context>
    <name>FieldView</name>
    <message>
        <source>Momentary</source>
        <translation>Momentan</translation>
    </message>
    <message>
        <source>Momentary loudness</source>
        <translation>Momentane Lautheit</translation>
    </message>
    <message>
        <source>Short-term</source>
        <translation>Kurzzeit</translation>
    </message>
    <message>
        <source>Short-term loudness</source>
        <translation>Kurzzeitlautheit</translation>
    </message>
    <message>
        <source>Whole take</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Loudness of the take</source>
        <translation>Lautheit des Takes</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>True Peak</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Stereobild</translation>
    </message>
    <message>
        <source>Stereo scope: Mid is upright, Side is level</source>
        <translation>Stereosichtgerät: Mitte steht senkrecht, Seite waagerecht</translation>
    </message>
    <message>
        <source>Correlation: +1 is mono; below 0, mono loses sound</source>
        <translation>Korrelation: +1 ist mono; unter 0 geht in Mono Klang verloren</translation>
    </message>
    <message>
        <source>Loudness of the last 400 ms</source>
        <translation>Lautheit der letzten 400 ms</translation>
    </message>
    <message>
        <source>Loudness of the last 3 s</source>
        <translation>Lautheit der letzten 3 s</translation>
    </message>
    <message>
        <source>Loudness of the whole take at this width and gain</source>
        <translation>Lautheit des ganzen Takes bei dieser Breite und Verstärkung</translation>
    </message>
    <message>
        <source>Greatest level between the samples, at this width and gain</source>
        <translation>Größter Pegel zwischen den Samples bei dieser Breite und Verstärkung</translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>Recording, loaded</source>
        <translation>Aufnahme, geladen</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exportiert</translation>
    </message>
</context>
<context>
    <name>FilePanel</name>
    <message>
        <source>Reading “%1”…</source>
        <translation>„%1“ wird gelesen …</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>„%1“ ist nicht lesbar: %2</translation>
    </message>
    <message>
        <source>Looking for “%1”…</source>
        <translation>„%1“ wird gesucht …</translation>
    </message>
</context>
<context>
    <name>FolderBrowser</name>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>„%1“ ist nicht lesbar: %2</translation>
    </message>
</context>
<context>
    <name>FolderButton</name>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Choose</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>“%1” is no folder.</source>
        <translation>„%1“ ist kein Ordner.</translation>
    </message>
</context>
<context>
    <name>GainTickTitle</name>
    <message>
        <source>Scale</source>
        <translation>Skala</translation>
    </message>
</context>
<context>
    <name>HelpVC</name>
    <message>
        <source>Waveform</source>
        <translation>Wellenform</translation>
    </message>
    <message>
        <source>A click or a drag moves the play head</source>
        <translation>Klicken oder Ziehen bewegt die Abspielmarke</translation>
    </message>
    <message>
        <source>Wheel there</source>
        <translation>Rad darüber</translation>
    </message>
    <message>
        <source>Zooms; with Shift it scrolls</source>
        <translation>Zoomt; mit Umschalt wird gescrollt</translation>
    </message>
    <message>
        <source>Double click there</source>
        <translation>Doppelklick darauf</translation>
    </message>
    <message>
        <source>Shows the whole take</source>
        <translation>Zeigt den ganzen Take</translation>
    </message>
    <message>
        <source>Ruler over it</source>
        <translation>Lineal darüber</translation>
    </message>
    <message>
        <source>A drag loops; A and B can be moved there</source>
        <translation>Ziehen setzt eine Schleife; A und B lassen sich dort verschieben</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>A double click on the knob resets it</source>
        <translation>Ein Doppelklick auf den Knopf setzt sie zurück</translation>
    </message>
    <message>
        <source>Width and gain</source>
        <translation>Breite und Verstärkung</translation>
    </message>
    <message>
        <source>A click on the value lets you type one</source>
        <translation>Ein Klick auf den Wert lässt einen eintippen</translation>
    </message>
    <message>
        <source>Recorder in the dial</source>
        <translation>Rekorder im Drehregler</translation>
    </message>
    <message>
        <source>A double click turns to %1°</source>
        <translation>Ein Doppelklick dreht auf %1°</translation>
    </message>
    <message>
        <source>Peaks</source>
        <translation>Spitzen</translation>
    </message>
    <message>
        <source>A click on a figure or lamp clears them</source>
        <translation>Ein Klick auf Zahl oder Lampe setzt sie zurück</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Clears the loop, or gives up what takes long</source>
        <translation>Hebt die Schleife auf oder bricht ab, was lange dauert</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Keys and pointer</source>
        <translation>Tasten und Zeiger</translation>
    </message>
    <message>
        <source>Takes in the list</source>
        <translation>Takes in der Liste</translation>
    </message>
    <message>
        <source>Shift and Ctrl select several; the second button opens a menu</source>
        <translation>Umschalt und Strg wählen mehrere; ein Rechtsklick öffnet ein Menü</translation>
    </message>
</context>
<context>
    <name>IntroductionVC</name>
    <message>
        <source>What mid-side is</source>
        <translation>Was Mitte-Seite ist</translation>
    </message>
    <message>
        <source>One microphone hears the middle, another the sides. Together they give a stereo image whose width you choose after the recording.</source>
        <translation>Ein Mikrofon hört die Mitte, ein anderes die Seiten. Zusammen ergeben sie ein Stereobild, dessen Breite sich nach der Aufnahme wählen lässt.</translation>
    </message>
    <message>
        <source>Open a folder</source>
        <translation>Einen Ordner öffnen</translation>
    </message>
    <message>
        <source>Choose the folder with your takes at the top left. A double click on a take plays it.</source>
        <translation>Oben links den Ordner mit den Takes wählen. Ein Doppelklick auf einen Take spielt ihn ab.</translation>
    </message>
    <message>
        <source>Turn the width</source>
        <translation>Die Breite einstellen</translation>
    </message>
    <message>
        <source>Drag the dial from MONO to 150° while you listen. Gain makes a take louder or softer.</source>
        <translation>Beim Hören den Drehregler von MONO bis 150° ziehen. Die Verstärkung macht einen Take lauter oder leiser.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Export writes what you hear into a new stereo file. The take itself is never changed.</source>
        <translation>Exportieren schreibt das Gehörte in eine neue Stereodatei. Der Take selbst wird nie verändert.</translation>
    </message>
    <message>
        <source>Plug in the recorder</source>
        <translation>Den Rekorder anschließen</translation>
    </message>
    <message>
        <source>Connected over USB, it shows the room left on its card and lets you set battery type and auto power off.</source>
        <translation>Über USB verbunden zeigt er den freien Platz auf der Karte; Batterietyp und Abschaltautomatik lassen sich einstellen.</translation>
    </message>
    <message>
        <source>Welcome to TARN J4 Mixdeck</source>
        <translation>Willkommen bei TARN J4 Mixdeck</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>Einführung</translation>
    </message>
</context>
<context>
    <name>J4GainSlider</name>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
</context>
<context>
    <name>J4Slider</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
</context>
<context>
    <name>LevelFeed</name>
    <message>
        <source>Greatest level so far; a click clears it</source>
        <translation>Höchster Pegel bisher; ein Klick setzt ihn zurück</translation>
    </message>
    <message>
        <source>recorder&apos;s rule</source>
        <translation>Rekorder-Regel</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>Peak Hold</translation>
    </message>
</context>
<context>
    <name>LevelMeter</name>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
</context>
<context>
    <name>LoopMarks</name>
    <message>
        <source>A</source>
        <comment>beginning of a loop</comment>
        <translation>A</translation>
    </message>
    <message>
        <source>B</source>
        <comment>end of a loop</comment>
        <translation>B</translation>
    </message>
</context>
<context>
    <name>LoopPane</name>
    <message>
        <source>Loop: mark A at the play head</source>
        <translation>Schleife: A an der Abspielmarke setzen</translation>
    </message>
    <message>
        <source>Loop: mark B at the play head</source>
        <translation>Schleife: B an der Abspielmarke setzen</translation>
    </message>
    <message>
        <source>Loop: clear A and B</source>
        <translation>Schleife: A und B aufheben</translation>
    </message>
</context>
<context>
    <name>LoudnessField</name>
    <message>
        <source>Loudness to aim at</source>
        <translation>Ziellautheit</translation>
    </message>
    <message>
        <source>LUFS</source>
        <translation>LUFS</translation>
    </message>
</context>
<context>
    <name>LoudnessPane</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>NodeviceVC</name>
    <message>
        <source>The recorder</source>
        <translation>Der Rekorder</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Connect the recorder over USB and switch it on. Its settings can be changed here as soon as it is found.</source>
        <translation>Den Rekorder über USB verbinden und einschalten. Sobald er gefunden ist, lassen sich seine Einstellungen hier ändern.</translation>
    </message>
    <message>
        <source>No recorder is connected</source>
        <translation>Kein Rekorder verbunden</translation>
    </message>
</context>
<context>
    <name>PathViewer</name>
    <message>
        <source>Current folder</source>
        <translation>Aktueller Ordner</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>A–B</source>
        <translation>A–B</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>M</source>
        <comment>Mid</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>Solo Mid</source>
        <translation>Solo Mitte</translation>
    </message>
    <message>
        <source>S</source>
        <comment>Side</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Solo Side</source>
        <translation>Solo Seite</translation>
    </message>
    <message>
        <source>Place in the take</source>
        <translation>Stelle im Take</translation>
    </message>
    <message>
        <source>Length of the take</source>
        <translation>Länge des Takes</translation>
    </message>
    <message>
        <source>Position: drag or scroll</source>
        <translation>Position: ziehen oder scrollen</translation>
    </message>
    <message>
        <source>Volume of what you hear; an export keeps its level</source>
        <translation>Lautstärke beim Hören; ein Export behält seinen Pegel</translation>
    </message>
</context>
<context>
    <name>QueueModel</name>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>Wird abgebrochen</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>Exportiert</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>Progress of all</source>
        <translation>Gesamtfortschritt</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exporte</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel the selected exports</source>
        <translation>Ausgewählte Exporte abbrechen</translation>
    </message>
    <message>
        <source>%1 of %2 exported</source>
        <translation>%1 von %2 exportiert</translation>
    </message>
    <message>
        <source>%1, %2 failed</source>
        <translation>%1, %2 fehlgeschlagen</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Alle abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Reason</name>
    <message>
        <source>Not a WAVE file: %1</source>
        <translation>Keine WAVE-Datei: %1</translation>
    </message>
    <message>
        <source>shorter than 48 bytes</source>
        <translation>kürzer als 48 Byte</translation>
    </message>
    <message>
        <source>not a RIFF file</source>
        <translation>keine RIFF-Datei</translation>
    </message>
    <message>
        <source>a RIFF file, but not WAVE</source>
        <translation>eine RIFF-Datei, aber nicht WAVE</translation>
    </message>
    <message>
        <source>an RF64 file without its sizes (ds64 chunk)</source>
        <translation>eine RF64-Datei ohne ihre Größen (ds64-Chunk)</translation>
    </message>
    <message>
        <source>more chunks than a recording has</source>
        <translation>mehr Chunks, als eine Aufnahme hat</translation>
    </message>
    <message>
        <source>no format chunk</source>
        <translation>kein Format-Chunk</translation>
    </message>
    <message>
        <source>no data chunk</source>
        <translation>kein Daten-Chunk</translation>
    </message>
    <message>
        <source>No broadcast extension (bext chunk)</source>
        <translation>Keine Broadcast-Erweiterung (bext-Chunk)</translation>
    </message>
    <message>
        <source>The broadcast extension has %1 bytes, fewer than %2</source>
        <translation>Die Broadcast-Erweiterung hat %1 Byte, weniger als %2</translation>
    </message>
    <message>
        <source>Not a recording of the %1: its originator is &quot;%2&quot;</source>
        <translation>Keine Aufnahme des %1: ihr Urheber ist „%2“</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>The file became shorter</source>
        <translation>Die Datei ist kürzer geworden</translation>
    </message>
    <message>
        <source>The file has been deleted</source>
        <translation>Die Datei wurde gelöscht</translation>
    </message>
    <message>
        <source>No recording is open</source>
        <translation>Keine Aufnahme ist geöffnet</translation>
    </message>
    <message>
        <source>The target is the source itself</source>
        <translation>Das Ziel ist die Quelle selbst</translation>
    </message>
    <message>
        <source>The export would take %1 bytes; a WAVE file ends at 4 GiB</source>
        <translation>Der Export bräuchte %1 Byte; eine WAVE-Datei endet bei 4 GiB</translation>
    </message>
    <message>
        <source>The source cannot be read: %1</source>
        <translation>Die Quelle ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The recording has no loudness at this width: it is silent or shorter than 0.4 s</source>
        <translation>Die Aufnahme hat bei dieser Breite keine Lautheit: Sie ist still oder kürzer als 0,4 s</translation>
    </message>
    <message>
        <source>No file can be read</source>
        <translation>Es lässt sich keine Datei lesen</translation>
    </message>
    <message>
        <source>Samples of %1 bits in format %2 cannot be played</source>
        <translation>Samples mit %1 Bit im Format %2 lassen sich nicht abspielen</translation>
    </message>
    <message>
        <source>There are no channels</source>
        <translation>Es gibt keine Kanäle</translation>
    </message>
    <message>
        <source>There is no sample rate</source>
        <translation>Es gibt keine Abtastrate</translation>
    </message>
    <message>
        <source>No sound server was found (%1).</source>
        <translation>Es wurde kein Soundserver gefunden (%1).</translation>
    </message>
    <message>
        <source>The sound server has gone (%1).</source>
        <translation>Der Soundserver ist weg (%1).</translation>
    </message>
    <message>
        <source>The sound server did not answer.</source>
        <translation>Der Soundserver hat nicht geantwortet.</translation>
    </message>
    <message>
        <source>The sound output was not there (%1).</source>
        <translation>Die Audioausgabe war nicht da (%1).</translation>
    </message>
    <message>
        <source>The sound output has stopped.</source>
        <translation>Die Audioausgabe ist stehen geblieben.</translation>
    </message>
    <message>
        <source>The sound output could not be started (%1).</source>
        <translation>Die Audioausgabe ließ sich nicht starten (%1).</translation>
    </message>
    <message>
        <source>The sound output does not take %1 channels at %2 Hz.</source>
        <translation>Die Audioausgabe nimmt keine %1 Kanäle mit %2 Hz an.</translation>
    </message>
    <message>
        <source>no thread can be had</source>
        <translation>kein Thread verfügbar</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Vorgang nicht erlaubt</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Kein Platz mehr auf dem Gerät</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Speicherkontingent überschritten</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>Die Datei ist schon vorhanden</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Datei zu groß</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Dateiname zu lang</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Ist ein Ordner</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>Ist kein Ordner</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Ungültiges Argument</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>Kein solches Gerät</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Veralteter Dateizugriff</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>Verbindung verweigert</translation>
    </message>
    <message>
        <source>Connection terminated</source>
        <translation>Verbindung beendet</translation>
    </message>
    <message>
        <source>Sample bytes have been written already</source>
        <translation>Es sind schon Samples geschrieben</translation>
    </message>
    <message>
        <source>The file was dropped before it was saved</source>
        <translation>Die Datei wurde vor dem Speichern verworfen</translation>
    </message>
    <message>
        <source>The file has been saved already</source>
        <translation>Die Datei ist schon gespeichert</translation>
    </message>
    <message>
        <source>The file was written for another place</source>
        <translation>Die Datei wurde für einen anderen Ort geschrieben</translation>
    </message>
    <message>
        <source>There are too many channels, or too many frames a second.</source>
        <translation>Es sind zu viele Kanäle oder zu viele Samples pro Sekunde.</translation>
    </message>
    <message>
        <source>There is no ALSA sequencer here (%1).</source>
        <translation>Hier gibt es keinen ALSA-Sequenzer (%1).</translation>
    </message>
    <message>
        <source>No permission to use the ALSA sequencer (%1).</source>
        <translation>Keine Berechtigung für den ALSA-Sequenzer (%1).</translation>
    </message>
    <message>
        <source>The ALSA sequencer cannot be used (%1: %2).</source>
        <translation>Der ALSA-Sequenzer lässt sich nicht benutzen (%1: %2).</translation>
    </message>
    <message>
        <source>The ALSA sequencer has gone (%1).</source>
        <translation>Der ALSA-Sequenzer ist weg (%1).</translation>
    </message>
    <message>
        <source>This kernel or alsa-lib has no Universal MIDI Packets, which were asked for.</source>
        <translation>Dieser Kernel oder alsa-lib kennt keine Universal MIDI Packets, die verlangt wurden.</translation>
    </message>
    <message>
        <source>Markers and descriptions of the recording cannot be read</source>
        <translation>Marker und Beschreibungen der Aufnahme sind nicht lesbar</translation>
    </message>
    <message>
        <source>No audio: the data chunk states %1 bytes, the file holds %2 after it</source>
        <translation>Kein Ton: Der Daten-Chunk nennt %1 Byte, dahinter sind %2</translation>
    </message>
    <message>
        <source>Cut short: the data chunk states %1 bytes, the file holds %2</source>
        <translation>Abgeschnitten: Der Daten-Chunk nennt %1 Byte, die Datei hat %2</translation>
    </message>
    <message>
        <source>%1 channels of %2-bit samples with format tag %3 do not decode to useful sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)</source>
        <translation>%1 Kanäle mit %2-Bit-Samples im Format %3 ergeben keinen brauchbaren Ton; der Rekorder schreibt 2 Kanäle, 24 Bit ganzzahlig oder 32 Bit Float (Format 3)</translation>
    </message>
    <message>
        <source>The take cannot be read: %1</source>
        <translation>Der Take ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The card cannot be read: %1</source>
        <translation>Die Karte ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The card is no folder</source>
        <translation>Die Karte ist kein Ordner</translation>
    </message>
    <message>
        <source>The card is never written to, but holds the folder</source>
        <translation>Auf die Karte wird nie geschrieben, der Ordner liegt aber auf ihr</translation>
    </message>
    <message>
        <source>The card holds no takes</source>
        <translation>Auf der Karte sind keine Takes</translation>
    </message>
    <message>
        <source>The card is gone</source>
        <translation>Die Karte ist weg</translation>
    </message>
    <message>
        <source>The folder cannot be made: %1</source>
        <translation>Der Ordner lässt sich nicht anlegen: %1</translation>
    </message>
    <message>
        <source>The folder cannot be written to: %1</source>
        <translation>In den Ordner lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1</source>
        <translation>Der Ordner ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>Another copy is at work there</source>
        <translation>Dort ist eine andere Kopie am Werk</translation>
    </message>
    <message>
        <source>A copy is at work there</source>
        <translation>Dort ist eine Kopie am Werk</translation>
    </message>
    <message>
        <source>The folder is being verified</source>
        <translation>Der Ordner wird gerade geprüft</translation>
    </message>
    <message>
        <source>The manifest cannot be read: %1</source>
        <translation>Das Manifest ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>The manifest cannot be written: %1</source>
        <translation>Das Manifest lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>It has no manifest (%1)</source>
        <translation>Er hat kein Manifest (%1)</translation>
    </message>
    <message>
        <source>The takes and their manifest need %1 bytes, and %2 are free</source>
        <translation>Die Takes und ihr Manifest brauchen %1 Byte, frei sind %2</translation>
    </message>
    <message>
        <source>Its name is not UTF-8, and cannot stand in a manifest</source>
        <translation>Der Name ist kein UTF-8 und kann nicht in einem Manifest stehen</translation>
    </message>
    <message>
        <source>What is there is no file</source>
        <translation>Was dort ist, ist keine Datei</translation>
    </message>
    <message>
        <source>The take has %1 bytes, the file that is there %2</source>
        <translation>Der Take hat %1 Byte, die vorhandene Datei %2</translation>
    </message>
    <message>
        <source>The file that is there has another content</source>
        <translation>Die vorhandene Datei hat einen anderen Inhalt</translation>
    </message>
    <message>
        <source>It was changed while it was read</source>
        <translation>Er wurde beim Lesen verändert</translation>
    </message>
    <message>
        <source>What was written does not read back as it was</source>
        <translation>Was geschrieben wurde, liest sich anders zurück</translation>
    </message>
    <message>
        <source>the manifest has no hash of it that is known here</source>
        <translation>das Manifest hat keine hier bekannte Prüfsumme davon</translation>
    </message>
    <message>
        <source>%1 bytes, not %2</source>
        <translation>%1 Byte statt %2</translation>
    </message>
    <message>
        <source>another content</source>
        <translation>anderer Inhalt</translation>
    </message>
    <message>
        <source>it cannot be listed</source>
        <translation>der Inhalt lässt sich nicht auflisten</translation>
    </message>
    <message>
        <source>it is not well-formed</source>
        <translation>nicht wohlgeformt</translation>
    </message>
    <message>
        <source>it is no such list</source>
        <translation>es ist keine solche Liste</translation>
    </message>
    <message>
        <source>a path in it leads out of the folder</source>
        <translation>ein Pfad darin führt aus dem Ordner hinaus</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>it is not in the chain</source>
        <translation>steht nicht in der Kette</translation>
    </message>
    <message>
        <source>it was changed after it was written</source>
        <translation>wurde nach dem Schreiben verändert</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>Nicht genug Speicher</translation>
    </message>
    <message>
        <source>the data chunk states %1 bytes, the file holds %2</source>
        <translation>der Daten-Chunk nennt %1 Byte, die Datei hat %2</translation>
    </message>
    <message>
        <source>1 byte of half a frame at the end</source>
        <translation>1 Byte eines halben Frames am Ende</translation>
    </message>
    <message>
        <source>%1 bytes of half a frame at the end</source>
        <translation>%1 Byte eines halben Frames am Ende</translation>
    </message>
    <message>
        <source>%1 zero bytes at the end, where no sound was written</source>
        <translation>%1 Null-Bytes am Ende, wo kein Ton geschrieben wurde</translation>
    </message>
    <message>
        <source>the file states %1 bytes, and has %2</source>
        <translation>die Datei nennt %1 Byte und hat %2</translation>
    </message>
    <message>
        <source>%1 zero bytes after the end of the take</source>
        <translation>%1 Null-Bytes nach dem Ende des Takes</translation>
    </message>
    <message>
        <source>it does not begin as a WAVE file</source>
        <translation>der Anfang ist nicht der einer WAVE-Datei</translation>
    </message>
    <message>
        <source>its format has no frames</source>
        <translation>das Format hat keine Frames</translation>
    </message>
    <message>
        <source>there is no format chunk before the sound</source>
        <translation>vor dem Ton ist kein Format-Chunk</translation>
    </message>
    <message>
        <source>no sound is found in it (data chunk)</source>
        <translation>darin ist kein Ton zu finden (Daten-Chunk)</translation>
    </message>
    <message>
        <source>no sound was written to it</source>
        <translation>es wurde kein Ton hineingeschrieben</translation>
    </message>
</context>
<context>
    <name>RecorderSettings</name>
    <message>
        <source>Alkaline</source>
        <translation>Alkaline</translation>
    </message>
    <message>
        <source>Ni-MH</source>
        <translation>NiMH</translation>
    </message>
    <message>
        <source>Lithium</source>
        <translation>Lithium</translation>
    </message>
    <message>
        <source>Li-ion</source>
        <translation>Li-Ion</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 Minuten</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 Minuten</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>RepairOffer</name>
    <message>
        <source>The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The take itself stays as it is.</source>
        <translation>Die Aufnahme von %1 ist abgebrochen. %2 s Ton lassen sich daneben nach %3 retten. Der Take selbst bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>Salvage</source>
        <translation>Retten</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>%1 is being salvaged…</source>
        <translation>%1 wird gerettet …</translation>
    </message>
    <message>
        <source>%1 was not saved: %2.</source>
        <translation>%1 wurde nicht gespeichert: %2.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Speichern fehlgeschlagen.</translation>
    </message>
    <message>
        <source>What was found:</source>
        <translation>Gefunden wurde:</translation>
    </message>
    <message>
        <source>%1 is salvaged into %2.</source>
        <translation>%1 ist nach %2 gerettet.</translation>
    </message>
</context>
<context>
    <name>RowMenu</name>
    <message>
        <source>What is selected</source>
        <translation>Was ausgewählt ist</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Öffnen</translation>
    </message>
    <message>
        <source>&amp;Export %1…</source>
        <translation>%1 &amp;exportieren …</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>&amp;Show in file manager</source>
        <translation>Im &amp;Dateimanager zeigen</translation>
    </message>
    <message>
        <source>&amp;Copy path</source>
        <translation>Pfad &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy paths</source>
        <translation>Pfade &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>&amp;Informationen</translation>
    </message>
</context>
<context>
    <name>RowReader</name>
    <message>
        <source>width %1°</source>
        <translation>Breite %1°</translation>
    </message>
    <message>
        <source>gain %1 dB</source>
        <translation>Verstärkung %1 dB</translation>
    </message>
    <message>
        <source>Exported as %1: %2</source>
        <translation>Exportiert als %1: %2</translation>
    </message>
</context>
<context>
    <name>SavePanel</name>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Folders and recordings</source>
        <translation>Ordner und Aufnahmen</translation>
    </message>
    <message>
        <source>Saving checkboard...</source>
        <translation>Export speichern</translation>
    </message>
    <message>
        <source>Please select a path where to save decoded wav.</source>
        <translation>Bitte wählen, wo die dekodierte WAV-Datei gespeichert werden soll.</translation>
    </message>
    <message>
        <source>Create new folder</source>
        <translation>Neuen Ordner anlegen</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>Der Name ist zu lang.</translation>
    </message>
    <message>
        <source>“%1” exists. Replace it?</source>
        <translation>„%1“ ist vorhanden. Ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Name des neuen Ordners:</translation>
    </message>
    <message>
        <source>Making “%1”…</source>
        <translation>„%1“ wird angelegt …</translation>
    </message>
    <message>
        <source>“%1” cannot be made: %2</source>
        <translation>„%1“ lässt sich nicht anlegen: %2</translation>
    </message>
</context>
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>%n Take</numerusform>
            <numerusform>%n Takes</numerusform>
        </translation>
    </message>
    <message>
        <source>Export %1…</source>
        <translation>%1 exportieren …</translation>
    </message>
</context>
<context>
    <name>Slider</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>SoundPane</name>
    <message>
        <source>A double click turns to %1°, the plain sum and difference</source>
        <translation>Ein Doppelklick dreht auf %1°, reine Summe und Differenz</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stummschalten</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Stummschaltung aufheben</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Type the stereo width</source>
        <translation>Stereobreite eintippen</translation>
    </message>
    <message>
        <source>Type the gain</source>
        <translation>Verstärkung eintippen</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stereo width</source>
        <translation>Stereobreite</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Stereobild</translation>
    </message>
    <message>
        <source>Gain scale</source>
        <translation>Verstärkungsskala</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Level scale</source>
        <translation>Pegelskala</translation>
    </message>
    <message>
        <source>Level left</source>
        <translation>Pegel links</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>L</translation>
    </message>
    <message>
        <source>Level right</source>
        <translation>Pegel rechts</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>R</translation>
    </message>
    <message>
        <source>Peak left</source>
        <translation>Spitze links</translation>
    </message>
    <message>
        <source>Clip left</source>
        <translation>Übersteuerung links</translation>
    </message>
    <message>
        <source>Peak right</source>
        <translation>Spitze rechts</translation>
    </message>
    <message>
        <source>Clip right</source>
        <translation>Übersteuerung rechts</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>Peak Hold</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>Der Rekorder</translation>
    </message>
    <message>
        <source>Gain: drag or scroll; a double click sets 0 dB</source>
        <translation>Verstärkung: ziehen oder scrollen; ein Doppelklick setzt 0 dB</translation>
    </message>
    <message>
        <source>Level of the left channel, before the volume</source>
        <translation>Pegel des linken Kanals, vor der Lautstärke</translation>
    </message>
    <message>
        <source>Level of the right channel, before the volume</source>
        <translation>Pegel des rechten Kanals, vor der Lautstärke</translation>
    </message>
</context>
<context>
    <name>StayAwake</name>
    <message>
        <source>Recordings are being exported or copied</source>
        <translation>Aufnahmen werden exportiert oder kopiert</translation>
    </message>
</context>
<context>
    <name>StereoScope</name>
    <message>
        <source>Stereo scope</source>
        <translation>Stereosichtgerät</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>L</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>R</translation>
    </message>
    <message>
        <source>M</source>
        <comment>mid</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>S</source>
        <comment>side</comment>
        <translation>S</translation>
    </message>
</context>
<context>
    <name>TakeFacts</name>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>%1 channels, %2 Hz, %3-bit %4</source>
        <translation>%1 Kanäle, %2 Hz, %3 Bit %4</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Of the recorder</source>
        <translation>Vom Rekorder</translation>
    </message>
    <message>
        <source>Raw M/S</source>
        <translation>Rohes M/S</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Frames</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>%1 bytes at %2</source>
        <translation>%1 Byte bei %2</translation>
    </message>
    <message>
        <source>, and %1 more of it</source>
        <translation>, und noch %1 davon</translation>
    </message>
    <message>
        <source>integer PCM</source>
        <translation>PCM ganzzahlig</translation>
    </message>
    <message>
        <source>IEEE float</source>
        <translation>IEEE-Float</translation>
    </message>
    <message>
        <source>extensible</source>
        <translation>erweiterbar</translation>
    </message>
    <message>
        <source>other</source>
        <translation>anderes</translation>
    </message>
</context>
<context>
    <name>TakeInformation</name>
    <message>
        <source>Information</source>
        <translation>Informationen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>No thread can be had to read it.</source>
        <translation>Zum Lesen ist kein Thread verfügbar.</translation>
    </message>
    <message>
        <source>Chunks</source>
        <translation>Chunks</translation>
    </message>
    <message>
        <source>Broadcast extension</source>
        <translation>Broadcast-Erweiterung</translation>
    </message>
    <message>
        <source>Figures at %1° and %2 dB</source>
        <translation>Werte bei %1° und %2 dB</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Wird gemessen …</translation>
    </message>
    <message>
        <source>Integrated loudness</source>
        <translation>Integrierte Lautheit</translation>
    </message>
    <message>
        <source>Loudness range</source>
        <translation>Lautheitsbereich</translation>
    </message>
    <message>
        <source>Momentary, at most</source>
        <translation>Momentan, maximal</translation>
    </message>
    <message>
        <source>Short-term, at most</source>
        <translation>Kurzzeit, maximal</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>True Peak</translation>
    </message>
    <message>
        <source>Sample peak</source>
        <translation>Sample Peak</translation>
    </message>
    <message>
        <source>Correlation</source>
        <translation>Korrelation</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balance</translation>
    </message>
</context>
<context>
    <name>TakeMessages</name>
    <message>
        <source>%1 is being opened… (Esc gives up)</source>
        <translation>%1 wird geöffnet … (Esc bricht ab)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>File not supported.</source>
        <translation>Datei wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Open it again once it is back.</source>
        <translation>%1 ist nicht lesbar: %2. Erneut öffnen, sobald die Datei wieder da ist.</translation>
    </message>
    <message>
        <source>Paused: %1 Press Play to try again.</source>
        <translation>Angehalten: %1 Mit Wiedergabe erneut versuchen.</translation>
    </message>
</context>
<context>
    <name>TakeRecall</name>
    <message>
        <source>What was remembered of takes was damaged. It was set aside as “%1”, and a new one begun.</source>
        <translation>Die gemerkten Daten der Takes waren beschädigt. Sie wurden als „%1“ beiseitegelegt und neu begonnen.</translation>
    </message>
    <message>
        <source>What is remembered of takes is of a newer version of the program. It is left alone, and nothing is remembered.</source>
        <translation>Die gemerkten Daten der Takes stammen von einer neueren Version des Programms. Sie bleiben unberührt, und es wird nichts gemerkt.</translation>
    </message>
    <message>
        <source>What takes were heard with cannot be remembered.</source>
        <translation>Mit welchen Einstellungen Takes gehört wurden, lässt sich nicht merken.</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>About %1 s left</source>
        <translation>Noch etwa %1 s</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>Noch etwa %1 min</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 of %2 takes</source>
        <translation>%1 von %2 Takes</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>Wird abgebrochen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>%1: %2. %3</source>
        <translation>%1: %2. %3</translation>
    </message>
</context>
<context>
    <name>TransferWork</name>
    <message>
        <source>Not everything could be listed.</source>
        <translation>Nicht alles konnte aufgelistet werden.</translation>
    </message>
    <message>
        <source>The manifest itself is not right.</source>
        <translation>Das Manifest selbst stimmt nicht.</translation>
    </message>
    <message>
        <source>%1 could not be listed: %2</source>
        <translation>%1 ließ sich nicht auflisten: %2</translation>
    </message>
    <message>
        <source>The manifest is not right: %1</source>
        <translation>Das Manifest stimmt nicht: %1</translation>
    </message>
    <message>
        <source>%1: copied and verified</source>
        <translation>%1: kopiert und geprüft</translation>
    </message>
    <message>
        <source>%1: there already</source>
        <translation>%1: schon vorhanden</translation>
    </message>
    <message>
        <source>%1 differs: %2</source>
        <translation>%1 weicht ab: %2</translation>
    </message>
    <message>
        <source>%1 was not copied: %2</source>
        <translation>%1 wurde nicht kopiert: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n Take ist da und geprüft</numerusform>
            <numerusform>%n Takes sind da und geprüft</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 takes are there and verified</source>
        <translation>%1 von %2 Takes sind da und geprüft</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>What was copied stays; the next copy goes on from there.</source>
        <translation>Was kopiert ist, bleibt; die nächste Kopie macht dort weiter.</translation>
    </message>
    <message>
        <source>%1 has changed: %2</source>
        <translation>%1 ist verändert: %2</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>%1 is now %2</source>
        <translation>%1 ist jetzt %2</translation>
    </message>
    <message>
        <source>%1 is new</source>
        <translation>%1 ist neu</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 ist nicht lesbar: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n Datei stimmt</numerusform>
            <numerusform>%n Dateien stimmen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 right, %2 not</source>
        <translation>%1 stimmen, %2 nicht</translation>
    </message>
</context>
<context>
    <name>TransportPane</name>
    <message>
        <source>Raw M/S</source>
        <translation>Rohes M/S</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>Stereo</translation>
    </message>
    <message>
        <source>%1-bit float</source>
        <translation>%1 Bit Float</translation>
    </message>
    <message>
        <source>%1-bit</source>
        <translation>%1 Bit</translation>
    </message>
    <message>
        <source>%1 kHz</source>
        <translation>%1 kHz</translation>
    </message>
    <message>
        <source>Double-click a recording to play it</source>
        <translation>Zum Abspielen eine Aufnahme doppelklicken</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
</context>
<context>
    <name>ValueField</name>
    <message>
        <source>Click to type a value</source>
        <translation>Klicken, um einen Wert einzutippen</translation>
    </message>
</context>
<context>
    <name>WaveformViewer</name>
    <message>
        <source>Waveform</source>
        <translation>Wellenform</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>L</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>R</translation>
    </message>
</context>
<context>
    <name>WindowCommands</name>
    <message>
        <source>No browser could be opened. Help is at %1</source>
        <translation>Es ließ sich kein Browser öffnen. Hilfe gibt es unter %1</translation>
    </message>
    <message>
        <source>Solo is for listening: Left and Right are exported.</source>
        <translation>Solo dient dem Hören: Exportiert werden Links und Rechts.</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Open folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>&amp;Clear peaks</source>
        <translation>&amp;Spitzen zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Meters by the recorder&apos;s rule</source>
        <translation>Pegelmesser nach &amp;Regel des Rekorders</translation>
    </message>
    <message>
        <source>&amp;Keys and pointer</source>
        <translation>&amp;Tasten und Zeiger</translation>
    </message>
    <message>
        <source>&amp;Introduction</source>
        <translation>E&amp;inführung</translation>
    </message>
    <message>
        <source>Online &amp;help</source>
        <translation>Online-&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;Wiedergabe</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>&amp;Abspielen oder Pause</translation>
    </message>
    <message>
        <source>&amp;Back 1 s</source>
        <translation>1 s &amp;zurück</translation>
    </message>
    <message>
        <source>&amp;Forward 1 s</source>
        <translation>1 s &amp;vor</translation>
    </message>
    <message>
        <source>Back 10 s</source>
        <translation>10 s zurück</translation>
    </message>
    <message>
        <source>Forward 10 s</source>
        <translation>10 s vor</translation>
    </message>
    <message>
        <source>To the be&amp;ginning</source>
        <translation>Zum An&amp;fang</translation>
    </message>
    <message>
        <source>To the &amp;end</source>
        <translation>Zum &amp;Ende</translation>
    </message>
    <message>
        <source>&amp;Louder by 1 dB</source>
        <translation>1 dB &amp;lauter</translation>
    </message>
    <message>
        <source>&amp;Softer by 1 dB</source>
        <translation>1 dB le&amp;iser</translation>
    </message>
    <message>
        <source>&amp;Wider by 5°</source>
        <translation>5° &amp;breiter</translation>
    </message>
    <message>
        <source>&amp;Narrower by 5°</source>
        <translation>5° &amp;schmaler</translation>
    </message>
    <message>
        <source>L&amp;oop: A, B, clear</source>
        <translation>Schleife: A, B, a&amp;ufheben</translation>
    </message>
    <message>
        <source>Solo &amp;Mid</source>
        <translation>Solo &amp;Mitte</translation>
    </message>
    <message>
        <source>Solo S&amp;ide</source>
        <translation>Solo Sei&amp;te</translation>
    </message>
    <message>
        <source>&amp;Remember width, gain and loop</source>
        <translation>Breite, Verstärkung und Schleife &amp;merken</translation>
    </message>
    <message>
        <source>Order of the &amp;list</source>
        <translation>Reihenfolge der &amp;Liste</translation>
    </message>
    <message>
        <source>By &amp;name</source>
        <translation>Nach &amp;Name</translation>
    </message>
    <message>
        <source>By &amp;recording time</source>
        <translation>Nach Aufnahme&amp;zeit</translation>
    </message>
    <message>
        <source>By &amp;duration</source>
        <translation>Nach &amp;Dauer</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Copy car&amp;d…</source>
        <translation>&amp;Karte kopieren …</translation>
    </message>
    <message>
        <source>&amp;Verify folder…</source>
        <translation>Ordner &amp;prüfen …</translation>
    </message>
</context>
</TS>
