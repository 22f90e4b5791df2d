<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutVC</name>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Desktop companion of the TARN J4 recorder</source>
        <translation>Application de bureau pour l’enregistreur TARN J4</translation>
    </message>
    <message>
        <source>Copyright 2026 The Mixdeck developers
MIT license</source>
        <translation>Copyright 2026 The Mixdeck developers
Licence MIT</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Copy details</source>
        <translation>Copier les détails</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
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
        <translation>Largeur stéréo</translation>
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
        <translation>L’enregistreur est connecté.</translation>
    </message>
    <message>
        <source>The recorder is no longer connected.</source>
        <translation>L’enregistreur n’est plus connecté.</translation>
    </message>
    <message>
        <source>%1 is exported.</source>
        <translation>%1 est exporté.</translation>
    </message>
    <message>
        <source>%1 of %2 takes are exported.</source>
        <translation>%1 prises sur %2 sont exportées.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n prise est exportée.</numerusform>
            <numerusform>%n prises sont exportées.</numerusform>
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
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 bits linéaire</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 bits flottant</translation>
    </message>
    <message>
        <source>Normalize each to full scale</source>
        <translation>Normaliser chacune à pleine échelle</translation>
    </message>
    <message>
        <source>Each to a loudness</source>
        <translation>Chacune à une sonie cible</translation>
    </message>
    <message>
        <source>Beside each take</source>
        <translation>À côté de chaque prise</translation>
    </message>
    <message>
        <source>Into a folder</source>
        <translation>Dans un dossier</translation>
    </message>
    <message>
        <source>Folder for the exports</source>
        <translation>Dossier des exportations</translation>
    </message>
    <message>
        <source>Where an export exists</source>
        <translation>Si l’exportation existe déjà</translation>
    </message>
    <message>
        <source>Skip the take</source>
        <translation>Passer la prise</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>La remplacer</translation>
    </message>
    <message>
        <source>Number the new one</source>
        <translation>Numéroter la nouvelle</translation>
    </message>
    <message>
        <source>Each at its remembered width and gain</source>
        <translation>Chacune avec sa largeur et son gain mémorisés</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Conserver l’heure d’enregistrement et les marqueurs</translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message>
        <source>One take was not exported.</source>
        <translation>Une prise n’a pas été exportée.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n prise n’a pas été exportée.</numerusform>
            <numerusform>%n prises n’ont pas été exportées.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>%1 exists</source>
        <translation>%1 existe</translation>
    </message>
    <message>
        <source>%1 is itself among the takes</source>
        <translation>%1 est lui-même parmi les prises</translation>
    </message>
    <message>
        <source>%1 is about to be written</source>
        <translation>%1 va être écrit</translation>
    </message>
    <message>
        <source>%1 is to be the export of %2</source>
        <translation>%1 doit être l’exportation de %2</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>Exporter %n prise</numerusform>
            <numerusform>Exporter %n prises</numerusform>
        </translation>
    </message>
    <message>
        <source>Takes that will not be exported</source>
        <translation>Prises qui ne seront pas exportées</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>Largeur stéréo</translation>
    </message>
    <message>
        <source>%1° for all</source>
        <translation>%1° pour toutes</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Place</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>Exporter %1</translation>
    </message>
    <message>
        <source>To %1 LUFS</source>
        <translation>À %1 LUFS</translation>
    </message>
    <message>
        <source>%1, of %2 that are free</source>
        <translation>%1, sur %2 libres</translation>
    </message>
    <message>
        <source>The takes cannot be looked at: %1.</source>
        <translation>Les prises ne peuvent pas être examinées&#xa0;: %1.</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Une sonie est un nombre de −70 à 0.</translation>
    </message>
    <message>
        <source>There is too little room: the last of them will not be written</source>
        <translation>Il y a trop peu de place&#xa0;: les dernières ne seront pas écrites</translation>
    </message>
    <message>
        <source>Samples of some of them export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Les échantillons de certaines s’exportent comme du bruit&#xa0;: l’enregistreur écrit en 24 bits ou en 32 bits flottant</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Plus de 4 Gio&#xa0;: écrit en RF64, que tous les programmes ne lisent pas</translation>
    </message>
    <message>
        <source>One will not be exported:</source>
        <translation>Une ne sera pas exportée&#xa0;:</translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n ne sera pas exportée&#xa0;:</numerusform>
            <numerusform>%n ne seront pas exportées&#xa0;:</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>As remembered, else %1</source>
        <translation>Valeurs mémorisées, sinon %1</translation>
    </message>
</context>
<context>
    <name>BrowserPane</name>
    <message>
        <source>Looking for “%1”… (Esc gives up)</source>
        <translation>Recherche de «&#xa0;%1&#xa0;»… (Échap abandonne)</translation>
    </message>
    <message>
        <source>Open folder, now %1</source>
        <translation>Ouvrir un dossier, actuellement %1</translation>
    </message>
</context>
<context>
    <name>BrowserView</name>
    <message>
        <source>Go up</source>
        <translation>Remonter</translation>
    </message>
    <message>
        <source>Current folder</source>
        <translation>Dossier actuel</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ouvrir un dossier</translation>
    </message>
</context>
<context>
    <name>CardDesk</name>
    <message>
        <source>The card “%1” holds recordings. “Copy card…” in the menu brings them home.</source>
        <translation>La carte «&#xa0;%1&#xa0;» contient des enregistrements. «&#xa0;Copier une carte…&#xa0;» dans le menu les rapatrie.</translation>
    </message>
    <message>
        <source>Copy card</source>
        <translation>Copier une carte</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>Prises</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Carte</translation>
    </message>
    <message>
        <source>Into</source>
        <translation>Vers</translation>
    </message>
    <message>
        <source>Verify folder</source>
        <translation>Vérifier un dossier</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>Files that are not right</source>
        <translation>Fichiers qui ne sont pas corrects</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
</context>
<context>
    <name>ClipLamp</name>
    <message>
        <source>over full scale</source>
        <translation>au-dessus de la pleine échelle</translation>
    </message>
    <message>
        <source>not over full scale</source>
        <translation>pas au-dessus de la pleine échelle</translation>
    </message>
</context>
<context>
    <name>CorrelationBar</name>
    <message>
        <source>Correlation</source>
        <translation>Corrélation</translation>
    </message>
</context>
<context>
    <name>CostView</name>
    <message>
        <source>Width</source>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Sonie</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Crête vraie</translation>
    </message>
</context>
<context>
    <name>DevicePane</name>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Ver. %1</source>
        <translation>Ver. %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Déconnecté</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>a size and its unit</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>%1 / %2 Used</source>
        <translation>%1 / %2 utilisés</translation>
    </message>
</context>
<context>
    <name>DeviceView</name>
    <message>
        <source>Simulated recorder</source>
        <translation>Enregistreur simulé</translation>
    </message>
    <message>
        <source>No recorder can be found here.</source>
        <translation>Aucun enregistreur détectable.</translation>
    </message>
    <message>
        <source>Card used</source>
        <translation>Occupation de la carte</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>Restant</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Piles</translation>
    </message>
    <message>
        <source>Auto power off</source>
        <translation>Arrêt automatique</translation>
    </message>
    <message>
        <source>%1, no recorder connected</source>
        <translation>%1, aucun enregistreur connecté</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>L’enregistreur</translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message>
        <source>Takes are still being copied. What is copied stays; the next copy goes on from there.</source>
        <translation>Des prises sont encore en cours de copie. Ce qui est copié reste&#xa0;; la prochaine copie reprend là.</translation>
    </message>
    <message>
        <source>Keep copying</source>
        <translation>Continuer la copie</translation>
    </message>
    <message>
        <source>Stop and quit</source>
        <translation>Arrêter et quitter</translation>
    </message>
    <message>
        <source>Keep working</source>
        <translation>Tout continuer</translation>
    </message>
    <message>
        <source>Stop all and quit</source>
        <translation>Tout arrêter et quitter</translation>
    </message>
    <message>
        <source>An export is still running. Ending now cancels it.</source>
        <translation>Une exportation est en cours. Quitter maintenant l’annule.</translation>
    </message>
    <message>
        <source>Keep exporting</source>
        <translation>Continuer l’exportation</translation>
    </message>
    <message>
        <source>Cancel export and quit</source>
        <translation>Interrompre et quitter</translation>
    </message>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n exportation est en cours ou en attente. Quitter maintenant l’annule.</numerusform>
            <numerusform>%n exportations sont en cours ou en attente. Quitter maintenant les annule.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel exports and quit</source>
        <translation>Interrompre et quitter</translation>
    </message>
</context>
<context>
    <name>ExportDesk</name>
    <message>
        <source>%1 was not exported: %2.</source>
        <translation>%1 n’a pas été exporté&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Fail to open.</source>
        <translation>Échec de l’ouverture.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Échec de l’enregistrement.</translation>
    </message>
</context>
<context>
    <name>ExportFacts</name>
    <message>
        <source>Channels as recorded</source>
        <translation>Canaux tels qu’enregistrés</translation>
    </message>
    <message>
        <source>To full scale</source>
        <translation>À pleine échelle</translation>
    </message>
    <message>
        <source>These %1-bit samples export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Ces échantillons de %1 bits s’exportent comme du bruit&#xa0;: l’enregistreur écrit en 24 bits ou en 32 bits flottant</translation>
    </message>
    <message>
        <source>Only %1 free in this folder</source>
        <translation>Seulement %1 libres dans ce dossier</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Plus de 4 Gio&#xa0;: écrit en RF64, que tous les programmes ne lisent pas</translation>
    </message>
</context>
<context>
    <name>ExportLevels</name>
    <message>
        <source>Would clip in 24 bit</source>
        <translation>Saturerait en 24 bits</translation>
    </message>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>Saturerait en 24 bits à %n endroit</numerusform>
            <numerusform>Saturerait en 24 bits à %n endroits</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>Exportation de %1</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>vers %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
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
        <translation>Annulation en cours</translation>
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
        <translation>Largeur stéréo</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>Taille du fichier</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Sonie</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Crête vraie</translation>
    </message>
    <message>
        <source>Normalize to full scale</source>
        <translation>Normaliser à pleine échelle</translation>
    </message>
    <message>
        <source>Selection only</source>
        <translation>Sélection seulement</translation>
    </message>
    <message>
        <source>To a loudness</source>
        <translation>À une sonie cible</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 bits flottant</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 bits linéaire</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Une sonie est un nombre de −70 à 0.</translation>
    </message>
    <message>
        <source>Silence, and what is shorter than 0.4 s, has no loudness.</source>
        <translation>Le silence, et ce qui dure moins de 0,4 s, n’a pas de sonie.</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>The take cannot be read, so its loudness is not known.</source>
        <translation>La prise ne peut pas être lue, sa sonie est donc inconnue.</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Conserver l’heure d’enregistrement et les marqueurs</translation>
    </message>
</context>
<context>
    <name>FieldView</name>
    <message>
        <source>Momentary</source>
        <translation>Momentanée</translation>
    </message>
    <message>
        <source>Momentary loudness</source>
        <translation>Sonie momentanée</translation>
    </message>
    <message>
        <source>Short-term</source>
        <translation>Court terme</translation>
    </message>
    <message>
        <source>Short-term loudness</source>
        <translation>Sonie à court terme</translation>
    </message>
    <message>
        <source>Whole take</source>
        <translation>Prise entière</translation>
    </message>
    <message>
        <source>Loudness of the take</source>
        <translation>Sonie de la prise</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Crête vraie</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Stereo scope: Mid is upright, Side is level</source>
        <translation>Vectorscope&#xa0;: Mid est vertical, Side horizontal</translation>
    </message>
    <message>
        <source>Correlation: +1 is mono; below 0, mono loses sound</source>
        <translation>Corrélation&#xa0;: +1 est mono&#xa0;; sous 0, du son se perd en mono</translation>
    </message>
    <message>
        <source>Loudness of the last 400 ms</source>
        <translation>Sonie des 400 dernières ms</translation>
    </message>
    <message>
        <source>Loudness of the last 3 s</source>
        <translation>Sonie des 3 dernières s</translation>
    </message>
    <message>
        <source>Loudness of the whole take at this width and gain</source>
        <translation>Sonie de toute la prise avec cette largeur et ce gain</translation>
    </message>
    <message>
        <source>Greatest level between the samples, at this width and gain</source>
        <translation>Plus haut niveau entre les échantillons, avec cette largeur et ce gain</translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>Recording, loaded</source>
        <translation>Enregistrement, chargé</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exporté</translation>
    </message>
</context>
<context>
    <name>FilePanel</name>
    <message>
        <source>Reading “%1”…</source>
        <translation>Lecture de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>Dossier parent</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu&#xa0;: %2</translation>
    </message>
    <message>
        <source>Looking for “%1”…</source>
        <translation>Recherche de «&#xa0;%1&#xa0;»…</translation>
    </message>
</context>
<context>
    <name>FolderBrowser</name>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>FolderButton</name>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Choose</source>
        <translation>Choisir</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>“%1” is no folder.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un dossier.</translation>
    </message>
</context>
<context>
    <name>GainTickTitle</name>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
</context>
<context>
    <name>HelpVC</name>
    <message>
        <source>Waveform</source>
        <translation>Forme d’onde</translation>
    </message>
    <message>
        <source>A click or a drag moves the play head</source>
        <translation>Cliquer ou glisser déplace la tête de lecture</translation>
    </message>
    <message>
        <source>Wheel there</source>
        <translation>Molette dessus</translation>
    </message>
    <message>
        <source>Zooms; with Shift it scrolls</source>
        <translation>Zoome&#xa0;; avec Maj, défile</translation>
    </message>
    <message>
        <source>Double click there</source>
        <translation>Double-clic dessus</translation>
    </message>
    <message>
        <source>Shows the whole take</source>
        <translation>Montre la prise entière</translation>
    </message>
    <message>
        <source>Ruler over it</source>
        <translation>Règle au-dessus</translation>
    </message>
    <message>
        <source>A drag loops; A and B can be moved there</source>
        <translation>Glisser crée une boucle&#xa0;; A et B s’y déplacent</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
    </message>
    <message>
        <source>A double click on the knob resets it</source>
        <translation>Un double-clic sur le bouton le remet à zéro</translation>
    </message>
    <message>
        <source>Width and gain</source>
        <translation>Largeur et gain</translation>
    </message>
    <message>
        <source>A click on the value lets you type one</source>
        <translation>Un clic sur la valeur permet d’en saisir une</translation>
    </message>
    <message>
        <source>Recorder in the dial</source>
        <translation>Enregistreur dans le cadran</translation>
    </message>
    <message>
        <source>A double click turns to %1°</source>
        <translation>Un double-clic règle sur %1°</translation>
    </message>
    <message>
        <source>Peaks</source>
        <translation>Crêtes</translation>
    </message>
    <message>
        <source>A click on a figure or lamp clears them</source>
        <translation>Un clic sur un chiffre ou un voyant les efface</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Clears the loop, or gives up what takes long</source>
        <translation>Efface la boucle, ou abandonne ce qui est long</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Pointeur</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Keys and pointer</source>
        <translation>Clavier et pointeur</translation>
    </message>
    <message>
        <source>Takes in the list</source>
        <translation>Prises de la liste</translation>
    </message>
    <message>
        <source>Shift and Ctrl select several; the second button opens a menu</source>
        <translation>Maj et Ctrl en sélectionnent plusieurs&#xa0;; un clic droit ouvre un menu</translation>
    </message>
</context>
<context>
    <name>IntroductionVC</name>
    <message>
        <source>What mid-side is</source>
        <translation>Ce qu’est le Mid-Side</translation>
    </message>
    <message>
        <source>One microphone hears the middle, another the sides. Together they give a stereo image whose width you choose after the recording.</source>
        <translation>Un micro entend le milieu, un autre les côtés. Ensemble ils donnent une image stéréo dont vous choisissez la largeur après l’enregistrement.</translation>
    </message>
    <message>
        <source>Open a folder</source>
        <translation>Ouvrir un dossier</translation>
    </message>
    <message>
        <source>Choose the folder with your takes at the top left. A double click on a take plays it.</source>
        <translation>Choisissez en haut à gauche le dossier de vos prises. Un double-clic sur une prise la lit.</translation>
    </message>
    <message>
        <source>Turn the width</source>
        <translation>Régler la largeur</translation>
    </message>
    <message>
        <source>Drag the dial from MONO to 150° while you listen. Gain makes a take louder or softer.</source>
        <translation>Faites glisser le cadran de MONO à 150° pendant l’écoute. Le gain rend une prise plus ou moins forte.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Export writes what you hear into a new stereo file. The take itself is never changed.</source>
        <translation>L’exportation écrit ce que vous entendez dans un nouveau fichier stéréo. La prise elle-même n’est jamais modifiée.</translation>
    </message>
    <message>
        <source>Plug in the recorder</source>
        <translation>Brancher l’enregistreur</translation>
    </message>
    <message>
        <source>Connected over USB, it shows the room left on its card and lets you set battery type and auto power off.</source>
        <translation>Connecté en USB, il montre la place qui reste sur sa carte et permet de régler le type de piles et l’arrêt automatique.</translation>
    </message>
    <message>
        <source>Welcome to TARN J4 Mixdeck</source>
        <translation>Bienvenue dans TARN J4 Mixdeck</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>Ne plus afficher</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>Introduction</translation>
    </message>
</context>
<context>
    <name>J4GainSlider</name>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
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
        <translation>Niveau maximal jusqu’ici&#xa0;; un clic l’efface</translation>
    </message>
    <message>
        <source>recorder&apos;s rule</source>
        <translation>comme l’enregistreur</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>maintien de crête</translation>
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
        <translation>Boucle&#xa0;: marquer A à la tête de lecture</translation>
    </message>
    <message>
        <source>Loop: mark B at the play head</source>
        <translation>Boucle&#xa0;: marquer B à la tête de lecture</translation>
    </message>
    <message>
        <source>Loop: clear A and B</source>
        <translation>Boucle&#xa0;: effacer A et B</translation>
    </message>
</context>
<context>
    <name>LoudnessField</name>
    <message>
        <source>Loudness to aim at</source>
        <translation>Sonie cible</translation>
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
        <translation>L’enregistreur</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Connect the recorder over USB and switch it on. Its settings can be changed here as soon as it is found.</source>
        <translation>Connectez l’enregistreur en USB et allumez-le. Ses réglages peuvent être changés ici dès qu’il est trouvé.</translation>
    </message>
    <message>
        <source>No recorder is connected</source>
        <translation>Aucun enregistreur connecté</translation>
    </message>
</context>
<context>
    <name>PathViewer</name>
    <message>
        <source>Current folder</source>
        <translation>Dossier actuel</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>A–B</source>
        <translation>A–B</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>M</source>
        <comment>Mid</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>Solo Mid</source>
        <translation>Solo Mid</translation>
    </message>
    <message>
        <source>S</source>
        <comment>Side</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Solo Side</source>
        <translation>Solo Side</translation>
    </message>
    <message>
        <source>Place in the take</source>
        <translation>Position dans la prise</translation>
    </message>
    <message>
        <source>Length of the take</source>
        <translation>Durée de la prise</translation>
    </message>
    <message>
        <source>Position: drag or scroll</source>
        <translation>Position&#xa0;: faites glisser ou défiler</translation>
    </message>
    <message>
        <source>Volume of what you hear; an export keeps its level</source>
        <translation>Volume d’écoute&#xa0;; une exportation garde son niveau</translation>
    </message>
</context>
<context>
    <name>QueueModel</name>
    <message>
        <source>Waiting</source>
        <translation>En attente</translation>
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
        <translation>Annulation en cours</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>Exportée</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulée</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>Progress of all</source>
        <translation>Progression totale</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exportations</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Montrer dans le dossier</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancel the selected exports</source>
        <translation>Annuler les exportations sélectionnées</translation>
    </message>
    <message>
        <source>%1 of %2 exported</source>
        <translation>%1 sur %2 exportées</translation>
    </message>
    <message>
        <source>%1, %2 failed</source>
        <translation>%1, %2 en échec</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Tout annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>Reason</name>
    <message>
        <source>Not a WAVE file: %1</source>
        <translation>Pas un fichier WAVE&#xa0;: %1</translation>
    </message>
    <message>
        <source>shorter than 48 bytes</source>
        <translation>moins de 48 octets</translation>
    </message>
    <message>
        <source>not a RIFF file</source>
        <translation>pas un fichier RIFF</translation>
    </message>
    <message>
        <source>a RIFF file, but not WAVE</source>
        <translation>un fichier RIFF, mais pas WAVE</translation>
    </message>
    <message>
        <source>an RF64 file without its sizes (ds64 chunk)</source>
        <translation>un fichier RF64 sans ses tailles (chunk ds64)</translation>
    </message>
    <message>
        <source>more chunks than a recording has</source>
        <translation>plus de chunks que n’en a un enregistrement</translation>
    </message>
    <message>
        <source>no format chunk</source>
        <translation>pas de chunk de format</translation>
    </message>
    <message>
        <source>no data chunk</source>
        <translation>pas de chunk de données</translation>
    </message>
    <message>
        <source>No broadcast extension (bext chunk)</source>
        <translation>Pas d’extension broadcast (chunk bext)</translation>
    </message>
    <message>
        <source>The broadcast extension has %1 bytes, fewer than %2</source>
        <translation>L’extension broadcast a %1 octets, moins de %2</translation>
    </message>
    <message>
        <source>Not a recording of the %1: its originator is &quot;%2&quot;</source>
        <translation>Pas un enregistrement du %1&#xa0;: son origine est «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>The file became shorter</source>
        <translation>Le fichier est devenu plus court</translation>
    </message>
    <message>
        <source>The file has been deleted</source>
        <translation>Le fichier a été supprimé</translation>
    </message>
    <message>
        <source>No recording is open</source>
        <translation>Aucun enregistrement n’est ouvert</translation>
    </message>
    <message>
        <source>The target is the source itself</source>
        <translation>La cible est la source elle-même</translation>
    </message>
    <message>
        <source>The export would take %1 bytes; a WAVE file ends at 4 GiB</source>
        <translation>L’exportation prendrait %1 octets&#xa0;; un fichier WAVE s’arrête à 4 Gio</translation>
    </message>
    <message>
        <source>The source cannot be read: %1</source>
        <translation>La source ne peut pas être lue&#xa0;: %1</translation>
    </message>
    <message>
        <source>The recording has no loudness at this width: it is silent or shorter than 0.4 s</source>
        <translation>L’enregistrement n’a pas de sonie à cette largeur&#xa0;: il est silencieux ou dure moins de 0,4 s</translation>
    </message>
    <message>
        <source>No file can be read</source>
        <translation>Aucun fichier ne peut être lu</translation>
    </message>
    <message>
        <source>Samples of %1 bits in format %2 cannot be played</source>
        <translation>Les échantillons de %1 bits au format %2 ne peuvent pas être lus</translation>
    </message>
    <message>
        <source>There are no channels</source>
        <translation>Il n’y a pas de canaux</translation>
    </message>
    <message>
        <source>There is no sample rate</source>
        <translation>Il n’y a pas de fréquence d’échantillonnage</translation>
    </message>
    <message>
        <source>No sound server was found (%1).</source>
        <translation>Aucun serveur audio n’a été trouvé (%1).</translation>
    </message>
    <message>
        <source>The sound server has gone (%1).</source>
        <translation>Le serveur audio a disparu (%1).</translation>
    </message>
    <message>
        <source>The sound server did not answer.</source>
        <translation>Le serveur audio n’a pas répondu.</translation>
    </message>
    <message>
        <source>The sound output was not there (%1).</source>
        <translation>La sortie audio n’était pas disponible (%1).</translation>
    </message>
    <message>
        <source>The sound output has stopped.</source>
        <translation>La sortie audio s’est arrêtée.</translation>
    </message>
    <message>
        <source>The sound output could not be started (%1).</source>
        <translation>La sortie audio n’a pas pu démarrer (%1).</translation>
    </message>
    <message>
        <source>The sound output does not take %1 channels at %2 Hz.</source>
        <translation>La sortie audio n’accepte pas %1 canaux à %2 Hz.</translation>
    </message>
    <message>
        <source>no thread can be had</source>
        <translation>aucun fil d’exécution n’est disponible</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Aucun fichier ou dossier de ce nom</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permission refusée</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Opération non permise</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Erreur d’entrée/sortie</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Plus de place sur le support</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Quota de disque dépassé</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>Système de fichiers en lecture seule</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>Le fichier existe déjà</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Fichier trop volumineux</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Nom de fichier trop long</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Est un dossier</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>N’est pas un dossier</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Argument invalide</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>Aucun périphérique de ce type</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Accès au fichier périmé</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Trop de fichiers ouverts</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>Connexion refusée</translation>
    </message>
    <message>
        <source>Connection terminated</source>
        <translation>Connexion interrompue</translation>
    </message>
    <message>
        <source>Sample bytes have been written already</source>
        <translation>Des échantillons ont déjà été écrits</translation>
    </message>
    <message>
        <source>The file was dropped before it was saved</source>
        <translation>Le fichier a été abandonné avant d’être enregistré</translation>
    </message>
    <message>
        <source>The file has been saved already</source>
        <translation>Le fichier est déjà enregistré</translation>
    </message>
    <message>
        <source>The file was written for another place</source>
        <translation>Le fichier a été écrit pour un autre emplacement</translation>
    </message>
    <message>
        <source>There are too many channels, or too many frames a second.</source>
        <translation>Il y a trop de canaux ou trop d’échantillons par seconde.</translation>
    </message>
    <message>
        <source>There is no ALSA sequencer here (%1).</source>
        <translation>Il n’y a pas de séquenceur ALSA ici (%1).</translation>
    </message>
    <message>
        <source>No permission to use the ALSA sequencer (%1).</source>
        <translation>Pas d’autorisation pour le séquenceur ALSA (%1).</translation>
    </message>
    <message>
        <source>The ALSA sequencer cannot be used (%1: %2).</source>
        <translation>Le séquenceur ALSA ne peut pas être utilisé (%1&#xa0;: %2).</translation>
    </message>
    <message>
        <source>The ALSA sequencer has gone (%1).</source>
        <translation>Le séquenceur ALSA a disparu (%1).</translation>
    </message>
    <message>
        <source>This kernel or alsa-lib has no Universal MIDI Packets, which were asked for.</source>
        <translation>Ce noyau ou alsa-lib n’a pas les Universal MIDI Packets demandés.</translation>
    </message>
    <message>
        <source>Markers and descriptions of the recording cannot be read</source>
        <translation>Les marqueurs et descriptions de l’enregistrement ne peuvent pas être lus</translation>
    </message>
    <message>
        <source>No audio: the data chunk states %1 bytes, the file holds %2 after it</source>
        <translation>Pas de son&#xa0;: le chunk de données annonce %1 octets, le fichier en contient %2 après</translation>
    </message>
    <message>
        <source>Cut short: the data chunk states %1 bytes, the file holds %2</source>
        <translation>Tronqué&#xa0;: le chunk de données annonce %1 octets, le fichier en contient %2</translation>
    </message>
    <message>
        <source>%1 channels of %2-bit samples with format tag %3 do not decode to useful sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)</source>
        <translation>%1 canaux d’échantillons de %2 bits au format %3 ne donnent pas de son utilisable&#xa0;; l’enregistreur écrit 2 canaux, en 24 bits entier ou en 32 bits flottant (format 3)</translation>
    </message>
    <message>
        <source>The take cannot be read: %1</source>
        <translation>La prise ne peut pas être lue&#xa0;: %1</translation>
    </message>
    <message>
        <source>The card cannot be read: %1</source>
        <translation>La carte ne peut pas être lue&#xa0;: %1</translation>
    </message>
    <message>
        <source>The card is no folder</source>
        <translation>La carte n’est pas un dossier</translation>
    </message>
    <message>
        <source>The card is never written to, but holds the folder</source>
        <translation>On n’écrit jamais sur la carte, or le dossier s’y trouve</translation>
    </message>
    <message>
        <source>The card holds no takes</source>
        <translation>La carte ne contient pas de prises</translation>
    </message>
    <message>
        <source>The card is gone</source>
        <translation>La carte n’est plus là</translation>
    </message>
    <message>
        <source>The folder cannot be made: %1</source>
        <translation>Le dossier ne peut pas être créé&#xa0;: %1</translation>
    </message>
    <message>
        <source>The folder cannot be written to: %1</source>
        <translation>Impossible d’écrire dans le dossier&#xa0;: %1</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1</source>
        <translation>Le dossier ne peut pas être lu&#xa0;: %1</translation>
    </message>
    <message>
        <source>Another copy is at work there</source>
        <translation>Une autre copie y est en cours</translation>
    </message>
    <message>
        <source>A copy is at work there</source>
        <translation>Une copie y est en cours</translation>
    </message>
    <message>
        <source>The folder is being verified</source>
        <translation>Le dossier est en cours de vérification</translation>
    </message>
    <message>
        <source>The manifest cannot be read: %1</source>
        <translation>Le manifeste ne peut pas être lu&#xa0;: %1</translation>
    </message>
    <message>
        <source>The manifest cannot be written: %1</source>
        <translation>Le manifeste ne peut pas être écrit&#xa0;: %1</translation>
    </message>
    <message>
        <source>It has no manifest (%1)</source>
        <translation>Il n’a pas de manifeste (%1)</translation>
    </message>
    <message>
        <source>The takes and their manifest need %1 bytes, and %2 are free</source>
        <translation>Les prises et leur manifeste demandent %1 octets, et %2 sont libres</translation>
    </message>
    <message>
        <source>Its name is not UTF-8, and cannot stand in a manifest</source>
        <translation>Son nom n’est pas en UTF-8 et ne peut figurer dans un manifeste</translation>
    </message>
    <message>
        <source>What is there is no file</source>
        <translation>Ce qui s’y trouve n’est pas un fichier</translation>
    </message>
    <message>
        <source>The take has %1 bytes, the file that is there %2</source>
        <translation>La prise a %1 octets, le fichier présent %2</translation>
    </message>
    <message>
        <source>The file that is there has another content</source>
        <translation>Le fichier présent a un autre contenu</translation>
    </message>
    <message>
        <source>It was changed while it was read</source>
        <translation>Elle a changé pendant la lecture</translation>
    </message>
    <message>
        <source>What was written does not read back as it was</source>
        <translation>Ce qui a été écrit ne se relit pas à l’identique</translation>
    </message>
    <message>
        <source>the manifest has no hash of it that is known here</source>
        <translation>le manifeste n’en donne aucune empreinte connue ici</translation>
    </message>
    <message>
        <source>%1 bytes, not %2</source>
        <translation>%1 octets au lieu de %2</translation>
    </message>
    <message>
        <source>another content</source>
        <translation>autre contenu</translation>
    </message>
    <message>
        <source>it cannot be listed</source>
        <translation>son contenu ne peut pas être listé</translation>
    </message>
    <message>
        <source>it is not well-formed</source>
        <translation>il n’est pas bien formé</translation>
    </message>
    <message>
        <source>it is no such list</source>
        <translation>ce n’est pas une liste de ce genre</translation>
    </message>
    <message>
        <source>a path in it leads out of the folder</source>
        <translation>un chemin y mène hors du dossier</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>il ne peut pas être lu</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>il manque</translation>
    </message>
    <message>
        <source>it is not in the chain</source>
        <translation>il n’est pas dans la chaîne</translation>
    </message>
    <message>
        <source>it was changed after it was written</source>
        <translation>il a été modifié après son écriture</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>La mémoire est insuffisante</translation>
    </message>
    <message>
        <source>the data chunk states %1 bytes, the file holds %2</source>
        <translation>le chunk de données annonce %1 octets, le fichier en contient %2</translation>
    </message>
    <message>
        <source>1 byte of half a frame at the end</source>
        <translation>1 octet d’une trame incomplète à la fin</translation>
    </message>
    <message>
        <source>%1 bytes of half a frame at the end</source>
        <translation>%1 octets d’une trame incomplète à la fin</translation>
    </message>
    <message>
        <source>%1 zero bytes at the end, where no sound was written</source>
        <translation>%1 octets nuls à la fin, où aucun son n’a été écrit</translation>
    </message>
    <message>
        <source>the file states %1 bytes, and has %2</source>
        <translation>le fichier annonce %1 octets et en contient %2</translation>
    </message>
    <message>
        <source>%1 zero bytes after the end of the take</source>
        <translation>%1 octets nuls après la fin de la prise</translation>
    </message>
    <message>
        <source>it does not begin as a WAVE file</source>
        <translation>le début n’est pas celui d’un fichier WAVE</translation>
    </message>
    <message>
        <source>its format has no frames</source>
        <translation>son format n’a pas de trames</translation>
    </message>
    <message>
        <source>there is no format chunk before the sound</source>
        <translation>il n’y a pas de chunk de format avant le son</translation>
    </message>
    <message>
        <source>no sound is found in it (data chunk)</source>
        <translation>aucun son n’y est trouvé (chunk de données)</translation>
    </message>
    <message>
        <source>no sound was written to it</source>
        <translation>aucun son n’y a été écrit</translation>
    </message>
</context>
<context>
    <name>RecorderSettings</name>
    <message>
        <source>Alkaline</source>
        <translation>Alcalines</translation>
    </message>
    <message>
        <source>Ni-MH</source>
        <translation>Ni-MH</translation>
    </message>
    <message>
        <source>Lithium</source>
        <translation>Lithium</translation>
    </message>
    <message>
        <source>Li-ion</source>
        <translation>Li-ion</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 minutes</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 minutes</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 heure</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
</context>
<context>
    <name>RepairOffer</name>
    <message>
        <source>The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The take itself stays as it is.</source>
        <translation>L’enregistrement de %1 s’est interrompu. %2 s de son peuvent être récupérées dans %3, à côté. La prise elle-même reste telle quelle.</translation>
    </message>
    <message>
        <source>Salvage</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>%1 is being salvaged…</source>
        <translation>Récupération de %1…</translation>
    </message>
    <message>
        <source>%1 was not saved: %2.</source>
        <translation>%1 n’a pas été enregistré&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Échec de l’enregistrement.</translation>
    </message>
    <message>
        <source>What was found:</source>
        <translation>Ce qui a été trouvé&#xa0;:</translation>
    </message>
    <message>
        <source>%1 is salvaged into %2.</source>
        <translation>%1 est récupéré dans %2.</translation>
    </message>
</context>
<context>
    <name>RowMenu</name>
    <message>
        <source>What is selected</source>
        <translation>Ce qui est sélectionné</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Export %1…</source>
        <translation>&amp;Exporter %1…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exporter…</translation>
    </message>
    <message>
        <source>&amp;Show in file manager</source>
        <translation>&amp;Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>&amp;Copy path</source>
        <translation>&amp;Copier le chemin</translation>
    </message>
    <message>
        <source>&amp;Copy paths</source>
        <translation>&amp;Copier les chemins</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>&amp;Informations</translation>
    </message>
</context>
<context>
    <name>RowReader</name>
    <message>
        <source>width %1°</source>
        <translation>largeur %1°</translation>
    </message>
    <message>
        <source>gain %1 dB</source>
        <translation>gain %1 dB</translation>
    </message>
    <message>
        <source>Exported as %1: %2</source>
        <translation>Exportée sous %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>SavePanel</name>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Folders and recordings</source>
        <translation>Dossiers et enregistrements</translation>
    </message>
    <message>
        <source>Saving checkboard...</source>
        <translation>Enregistrer l’exportation</translation>
    </message>
    <message>
        <source>Please select a path where to save decoded wav.</source>
        <translation>Choisissez où enregistrer le fichier WAV décodé.</translation>
    </message>
    <message>
        <source>Create new folder</source>
        <translation>Créer un dossier</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>Le nom est trop long.</translation>
    </message>
    <message>
        <source>“%1” exists. Replace it?</source>
        <translation>«&#xa0;%1&#xa0;» existe déjà. Remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nom du nouveau dossier&#xa0;:</translation>
    </message>
    <message>
        <source>Making “%1”…</source>
        <translation>Création de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>“%1” cannot be made: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être créé&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>%n prise</numerusform>
            <numerusform>%n prises</numerusform>
        </translation>
    </message>
    <message>
        <source>Export %1…</source>
        <translation>Exporter %1…</translation>
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
        <translation>Un double-clic règle sur %1°, simple somme et différence</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Rétablir le son</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Type the stereo width</source>
        <translation>Saisir la largeur stéréo</translation>
    </message>
    <message>
        <source>Type the gain</source>
        <translation>Saisir le gain</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stereo width</source>
        <translation>Largeur stéréo</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Gain scale</source>
        <translation>Échelle de gain</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Gain</translation>
    </message>
    <message>
        <source>Level scale</source>
        <translation>Échelle de niveau</translation>
    </message>
    <message>
        <source>Level left</source>
        <translation>Niveau gauche</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>G</translation>
    </message>
    <message>
        <source>Level right</source>
        <translation>Niveau droit</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>D</translation>
    </message>
    <message>
        <source>Peak left</source>
        <translation>Crête gauche</translation>
    </message>
    <message>
        <source>Clip left</source>
        <translation>Saturation gauche</translation>
    </message>
    <message>
        <source>Peak right</source>
        <translation>Crête droite</translation>
    </message>
    <message>
        <source>Clip right</source>
        <translation>Saturation droite</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Niveau</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>maintien de crête</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>L’enregistreur</translation>
    </message>
    <message>
        <source>Gain: drag or scroll; a double click sets 0 dB</source>
        <translation>Gain&#xa0;: faites glisser ou défiler&#xa0;; un double-clic le remet à 0 dB</translation>
    </message>
    <message>
        <source>Level of the left channel, before the volume</source>
        <translation>Niveau du canal gauche, avant le volume</translation>
    </message>
    <message>
        <source>Level of the right channel, before the volume</source>
        <translation>Niveau du canal droit, avant le volume</translation>
    </message>
</context>
<context>
    <name>StayAwake</name>
    <message>
        <source>Recordings are being exported or copied</source>
        <translation>Des enregistrements sont en cours d’exportation ou de copie</translation>
    </message>
</context>
<context>
    <name>StereoScope</name>
    <message>
        <source>Stereo scope</source>
        <translation>Vectorscope</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>G</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>D</translation>
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
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>%1 channels, %2 Hz, %3-bit %4</source>
        <translation>%1 canaux, %2 Hz, %3 bits %4</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Of the recorder</source>
        <translation>De l’enregistreur</translation>
    </message>
    <message>
        <source>Raw M/S</source>
        <translation>M/S brut</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Trames</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>%1 bytes at %2</source>
        <translation>%1 octets à %2</translation>
    </message>
    <message>
        <source>, and %1 more of it</source>
        <translation>, et %1 de plus</translation>
    </message>
    <message>
        <source>integer PCM</source>
        <translation>PCM entier</translation>
    </message>
    <message>
        <source>IEEE float</source>
        <translation>flottant IEEE</translation>
    </message>
    <message>
        <source>extensible</source>
        <translation>extensible</translation>
    </message>
    <message>
        <source>other</source>
        <translation>autre</translation>
    </message>
</context>
<context>
    <name>TakeInformation</name>
    <message>
        <source>Information</source>
        <translation>Informations</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Lecture…</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>No thread can be had to read it.</source>
        <translation>Aucun fil d’exécution n’est disponible pour le lire.</translation>
    </message>
    <message>
        <source>Chunks</source>
        <translation>Chunks</translation>
    </message>
    <message>
        <source>Broadcast extension</source>
        <translation>Extension broadcast</translation>
    </message>
    <message>
        <source>Figures at %1° and %2 dB</source>
        <translation>Valeurs à %1° et %2 dB</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Mesure en cours…</translation>
    </message>
    <message>
        <source>Integrated loudness</source>
        <translation>Sonie intégrée</translation>
    </message>
    <message>
        <source>Loudness range</source>
        <translation>Plage de sonie</translation>
    </message>
    <message>
        <source>Momentary, at most</source>
        <translation>Momentanée, maximale</translation>
    </message>
    <message>
        <source>Short-term, at most</source>
        <translation>Court terme, maximale</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Crête vraie</translation>
    </message>
    <message>
        <source>Sample peak</source>
        <translation>Crête d’échantillon</translation>
    </message>
    <message>
        <source>Correlation</source>
        <translation>Corrélation</translation>
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
        <translation>Ouverture de %1… (Échap abandonne)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>File not supported.</source>
        <translation>Fichier non pris en charge.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Open it again once it is back.</source>
        <translation>%1 ne peut pas être lu&#xa0;: %2. Rouvrez-le dès qu’il est de nouveau disponible.</translation>
    </message>
    <message>
        <source>Paused: %1 Press Play to try again.</source>
        <translation>En pause&#xa0;: %1 Appuyez sur Lecture pour réessayer.</translation>
    </message>
</context>
<context>
    <name>TakeRecall</name>
    <message>
        <source>What was remembered of takes was damaged. It was set aside as “%1”, and a new one begun.</source>
        <translation>Les données mémorisées sur les prises étaient endommagées. Elles ont été mises de côté sous «&#xa0;%1&#xa0;», et d’autres commencées.</translation>
    </message>
    <message>
        <source>What is remembered of takes is of a newer version of the program. It is left alone, and nothing is remembered.</source>
        <translation>Les données mémorisées sur les prises viennent d’une version plus récente du programme. Elles restent telles quelles, et rien n’est mémorisé.</translation>
    </message>
    <message>
        <source>What takes were heard with cannot be remembered.</source>
        <translation>Les réglages d’écoute des prises ne peuvent pas être mémorisés.</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>About %1 s left</source>
        <translation>Environ %1 s restantes</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>Environ %1 min restantes</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Montrer dans le dossier</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1 of %2 takes</source>
        <translation>%1 sur %2 prises</translation>
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
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>Annulation en cours</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%1: %2. %3</source>
        <translation>%1&#xa0;: %2. %3</translation>
    </message>
</context>
<context>
    <name>TransferWork</name>
    <message>
        <source>Not everything could be listed.</source>
        <translation>Tout n’a pas pu être listé.</translation>
    </message>
    <message>
        <source>The manifest itself is not right.</source>
        <translation>Le manifeste lui-même n’est pas correct.</translation>
    </message>
    <message>
        <source>%1 could not be listed: %2</source>
        <translation>%1 n’a pas pu être listé&#xa0;: %2</translation>
    </message>
    <message>
        <source>The manifest is not right: %1</source>
        <translation>Le manifeste n’est pas correct&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1: copied and verified</source>
        <translation>%1&#xa0;: copié et vérifié</translation>
    </message>
    <message>
        <source>%1: there already</source>
        <translation>%1&#xa0;: déjà là</translation>
    </message>
    <message>
        <source>%1 differs: %2</source>
        <translation>%1 diffère&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 was not copied: %2</source>
        <translation>%1 n’a pas été copié&#xa0;: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n prise est là et vérifiée</numerusform>
            <numerusform>%n prises sont là et vérifiées</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 takes are there and verified</source>
        <translation>%1 prises sur %2 sont là et vérifiées</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Annulé.</translation>
    </message>
    <message>
        <source>What was copied stays; the next copy goes on from there.</source>
        <translation>Ce qui a été copié reste&#xa0;; la prochaine copie reprend là.</translation>
    </message>
    <message>
        <source>%1 has changed: %2</source>
        <translation>%1 a changé&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 manque</translation>
    </message>
    <message>
        <source>%1 is now %2</source>
        <translation>%1 est maintenant %2</translation>
    </message>
    <message>
        <source>%1 is new</source>
        <translation>%1 est nouveau</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 ne peut pas être lu&#xa0;: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n fichier est correct</numerusform>
            <numerusform>%n fichiers sont corrects</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 right, %2 not</source>
        <translation>%1 corrects, %2 non</translation>
    </message>
</context>
<context>
    <name>TransportPane</name>
    <message>
        <source>Raw M/S</source>
        <translation>M/S brut</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>Stéréo</translation>
    </message>
    <message>
        <source>%1-bit float</source>
        <translation>%1 bits flottant</translation>
    </message>
    <message>
        <source>%1-bit</source>
        <translation>%1 bits</translation>
    </message>
    <message>
        <source>%1 kHz</source>
        <translation>%1 kHz</translation>
    </message>
    <message>
        <source>Double-click a recording to play it</source>
        <translation>Double-cliquez sur un enregistrement pour le lire</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
</context>
<context>
    <name>ValueField</name>
    <message>
        <source>Click to type a value</source>
        <translation>Cliquez pour saisir une valeur</translation>
    </message>
</context>
<context>
    <name>WaveformViewer</name>
    <message>
        <source>Waveform</source>
        <translation>Forme d’onde</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>G</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>D</translation>
    </message>
</context>
<context>
    <name>WindowCommands</name>
    <message>
        <source>No browser could be opened. Help is at %1</source>
        <translation>Aucun navigateur n’a pu être ouvert. L’aide se trouve à %1</translation>
    </message>
    <message>
        <source>Solo is for listening: Left and Right are exported.</source>
        <translation>Le solo sert à l’écoute&#xa0;: ce sont les canaux gauche et droit qui sont exportés.</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Open folder…</source>
        <translation>&amp;Ouvrir un dossier…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exporter…</translation>
    </message>
    <message>
        <source>&amp;Clear peaks</source>
        <translation>Effa&amp;cer les crêtes</translation>
    </message>
    <message>
        <source>&amp;Meters by the recorder&apos;s rule</source>
        <translation>&amp;Niveaux selon la règle de l’enregistreur</translation>
    </message>
    <message>
        <source>&amp;Keys and pointer</source>
        <translation>Clavier et &amp;pointeur</translation>
    </message>
    <message>
        <source>&amp;Introduction</source>
        <translation>&amp;Introduction</translation>
    </message>
    <message>
        <source>Online &amp;help</source>
        <translation>&amp;Aide en ligne</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À propo&amp;s</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;Lecture</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>&amp;Lecture ou pause</translation>
    </message>
    <message>
        <source>&amp;Back 1 s</source>
        <translation>&amp;Reculer de 1 s</translation>
    </message>
    <message>
        <source>&amp;Forward 1 s</source>
        <translation>&amp;Avancer de 1 s</translation>
    </message>
    <message>
        <source>Back 10 s</source>
        <translation>Reculer de 10 s</translation>
    </message>
    <message>
        <source>Forward 10 s</source>
        <translation>Avancer de 10 s</translation>
    </message>
    <message>
        <source>To the be&amp;ginning</source>
        <translation>Aller au &amp;début</translation>
    </message>
    <message>
        <source>To the &amp;end</source>
        <translation>Aller à la &amp;fin</translation>
    </message>
    <message>
        <source>&amp;Louder by 1 dB</source>
        <translation>&amp;Plus fort de 1 dB</translation>
    </message>
    <message>
        <source>&amp;Softer by 1 dB</source>
        <translation>&amp;Moins fort de 1 dB</translation>
    </message>
    <message>
        <source>&amp;Wider by 5°</source>
        <translation>Élar&amp;gir de 5°</translation>
    </message>
    <message>
        <source>&amp;Narrower by 5°</source>
        <translation>Ré&amp;trécir de 5°</translation>
    </message>
    <message>
        <source>L&amp;oop: A, B, clear</source>
        <translation>&amp;Boucle&#xa0;: A, B, effacer</translation>
    </message>
    <message>
        <source>Solo &amp;Mid</source>
        <translation>Solo M&amp;id</translation>
    </message>
    <message>
        <source>Solo S&amp;ide</source>
        <translation>Solo &amp;Side</translation>
    </message>
    <message>
        <source>&amp;Remember width, gain and loop</source>
        <translation>&amp;Mémoriser largeur, gain et boucle</translation>
    </message>
    <message>
        <source>Order of the &amp;list</source>
        <translation>Ordre de la lis&amp;te</translation>
    </message>
    <message>
        <source>By &amp;name</source>
        <translation>Par &amp;nom</translation>
    </message>
    <message>
        <source>By &amp;recording time</source>
        <translation>Par &amp;heure d’enregistrement</translation>
    </message>
    <message>
        <source>By &amp;duration</source>
        <translation>Par &amp;durée</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Copy car&amp;d…</source>
        <translation>Copier &amp;une carte…</translation>
    </message>
    <message>
        <source>&amp;Verify folder…</source>
        <translation>&amp;Vérifier un dossier…</translation>
    </message>
</context>
</TS>
