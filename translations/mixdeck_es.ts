<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AboutVC</name>
    <message>
        <source>Logo</source>
        <translation>Logotipo</translation>
    </message>
    <message>
        <source>Desktop companion of the TARN J4 recorder</source>
        <translation>Aplicación de escritorio para la grabadora TARN J4</translation>
    </message>
    <message>
        <source>Copyright 2026 The Mixdeck developers
MIT license</source>
        <translation>Copyright 2026 The Mixdeck developers
Licencia MIT</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Copy details</source>
        <translation>Copiar los detalles</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>AngleViewer</name>
    <message>
        <source>Stereo width</source>
        <translation>Ancho estéreo</translation>
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
        <translation>La grabadora está conectada.</translation>
    </message>
    <message>
        <source>The recorder is no longer connected.</source>
        <translation>La grabadora ya no está conectada.</translation>
    </message>
    <message>
        <source>%1 is exported.</source>
        <translation>%1 se ha exportado.</translation>
    </message>
    <message>
        <source>%1 of %2 takes are exported.</source>
        <translation>%1 de %2 tomas exportadas.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n toma exportada.</numerusform>
            <numerusform>%n tomas exportadas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchChoices</name>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ubicación</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 bits lineales</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 bits en coma flotante</translation>
    </message>
    <message>
        <source>Normalize each to full scale</source>
        <translation>Normalizar cada una a fondo de escala</translation>
    </message>
    <message>
        <source>Each to a loudness</source>
        <translation>Cada una a la sonoridad objetivo</translation>
    </message>
    <message>
        <source>Beside each take</source>
        <translation>Junto a cada toma</translation>
    </message>
    <message>
        <source>Into a folder</source>
        <translation>En una carpeta</translation>
    </message>
    <message>
        <source>Folder for the exports</source>
        <translation>Carpeta de las exportaciones</translation>
    </message>
    <message>
        <source>Where an export exists</source>
        <translation>Si ya existe la exportación</translation>
    </message>
    <message>
        <source>Skip the take</source>
        <translation>Omitir la toma</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>Reemplazarla</translation>
    </message>
    <message>
        <source>Number the new one</source>
        <translation>Numerar la nueva</translation>
    </message>
    <message>
        <source>Each at its remembered width and gain</source>
        <translation>Cada una con su ancho y ganancia recordados</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Conservar la hora de grabación y los marcadores</translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message>
        <source>One take was not exported.</source>
        <translation>Una toma no se ha exportado.</translation>
    </message>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n toma no se ha exportado.</numerusform>
            <numerusform>%n tomas no se han exportado.</numerusform>
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
        <translation>%1 está entre las propias tomas</translation>
    </message>
    <message>
        <source>%1 is about to be written</source>
        <translation>%1 está a punto de escribirse</translation>
    </message>
    <message>
        <source>%1 is to be the export of %2</source>
        <translation>%1 será la exportación de %2</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>Exportar %n toma</numerusform>
            <numerusform>Exportar %n tomas</numerusform>
        </translation>
    </message>
    <message>
        <source>Takes that will not be exported</source>
        <translation>Tomas que no se exportarán</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>Ancho estéreo</translation>
    </message>
    <message>
        <source>%1° for all</source>
        <translation>%1° para todas</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>Exportar %1</translation>
    </message>
    <message>
        <source>To %1 LUFS</source>
        <translation>A %1 LUFS</translation>
    </message>
    <message>
        <source>%1, of %2 that are free</source>
        <translation>%1, de %2 libres</translation>
    </message>
    <message>
        <source>The takes cannot be looked at: %1.</source>
        <translation>No se pueden examinar las tomas: %1.</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Una sonoridad es un número de −70 a 0.</translation>
    </message>
    <message>
        <source>There is too little room: the last of them will not be written</source>
        <translation>Hay muy poco espacio: las últimas no se escribirán</translation>
    </message>
    <message>
        <source>Samples of some of them export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Las muestras de algunas se exportan como ruido: la grabadora escribe 24 bits o 32 bits en coma flotante</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Más de 4 GiB: se escribe como RF64, que no todos los programas leen</translation>
    </message>
    <message>
        <source>One will not be exported:</source>
        <translation>Una no se exportará:</translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n no se exportará:</numerusform>
            <numerusform>%n no se exportarán:</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>As remembered, else %1</source>
        <translation>Valores recordados; si no, %1</translation>
    </message>
</context>
<context>
    <name>BrowserPane</name>
    <message>
        <source>Looking for “%1”… (Esc gives up)</source>
        <translation>Buscando «%1»… (Esc cancela)</translation>
    </message>
    <message>
        <source>Open folder, now %1</source>
        <translation>Abrir carpeta, ahora %1</translation>
    </message>
</context>
<context>
    <name>BrowserView</name>
    <message>
        <source>Go up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Current folder</source>
        <translation>Carpeta actual</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Abrir carpeta</translation>
    </message>
</context>
<context>
    <name>CardDesk</name>
    <message>
        <source>The card “%1” holds recordings. “Copy card…” in the menu brings them home.</source>
        <translation>La tarjeta «%1» contiene grabaciones. «Copiar tarjeta…» en el menú las trae al equipo.</translation>
    </message>
    <message>
        <source>Copy card</source>
        <translation>Copiar tarjeta</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>Tomas</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Tarjeta</translation>
    </message>
    <message>
        <source>Into</source>
        <translation>En</translation>
    </message>
    <message>
        <source>Verify folder</source>
        <translation>Verificar carpeta</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>Verificar</translation>
    </message>
    <message>
        <source>Files that are not right</source>
        <translation>Archivos incorrectos</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
</context>
<context>
    <name>ClipLamp</name>
    <message>
        <source>over full scale</source>
        <translation>por encima del fondo de escala</translation>
    </message>
    <message>
        <source>not over full scale</source>
        <translation>no por encima del fondo de escala</translation>
    </message>
</context>
<context>
    <name>CorrelationBar</name>
    <message>
        <source>Correlation</source>
        <translation>Correlación</translation>
    </message>
</context>
<context>
    <name>CostView</name>
    <message>
        <source>Width</source>
        <translation>Ancho</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Sonoridad</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Pico real</translation>
    </message>
</context>
<context>
    <name>DevicePane</name>
    <message>
        <source>Connected</source>
        <translation>Conectada</translation>
    </message>
    <message>
        <source>Ver. %1</source>
        <translation>Ver. %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Desconectada</translation>
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
        <translation>%1 / %2 usados</translation>
    </message>
</context>
<context>
    <name>DeviceView</name>
    <message>
        <source>Simulated recorder</source>
        <translation>Grabadora simulada</translation>
    </message>
    <message>
        <source>No recorder can be found here.</source>
        <translation>No se detecta ninguna grabadora.</translation>
    </message>
    <message>
        <source>Card used</source>
        <translation>Ocupación de la tarjeta</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>Restante</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Pilas</translation>
    </message>
    <message>
        <source>Auto power off</source>
        <translation>Apagado automático</translation>
    </message>
    <message>
        <source>%1, no recorder connected</source>
        <translation>%1, ninguna grabadora conectada</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>La grabadora</translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message>
        <source>Takes are still being copied. What is copied stays; the next copy goes on from there.</source>
        <translation>Todavía se están copiando tomas. Lo copiado queda; la próxima copia sigue desde ahí.</translation>
    </message>
    <message>
        <source>Keep copying</source>
        <translation>Seguir copiando</translation>
    </message>
    <message>
        <source>Stop and quit</source>
        <translation>Detener y salir</translation>
    </message>
    <message>
        <source>Keep working</source>
        <translation>Seguir con todo</translation>
    </message>
    <message>
        <source>Stop all and quit</source>
        <translation>Detener todo y salir</translation>
    </message>
    <message>
        <source>An export is still running. Ending now cancels it.</source>
        <translation>Hay una exportación en curso. Salir ahora la cancela.</translation>
    </message>
    <message>
        <source>Keep exporting</source>
        <translation>Seguir exportando</translation>
    </message>
    <message>
        <source>Cancel export and quit</source>
        <translation>Cancelar la exportación y salir</translation>
    </message>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n exportación está en curso o en espera. Salir ahora la cancela.</numerusform>
            <numerusform>%n exportaciones están en curso o en espera. Salir ahora las cancela.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel exports and quit</source>
        <translation>Cancelar las exportaciones y salir</translation>
    </message>
</context>
<context>
    <name>ExportDesk</name>
    <message>
        <source>%1 was not exported: %2.</source>
        <translation>%1 no se ha exportado: %2.</translation>
    </message>
    <message>
        <source>Fail to open.</source>
        <translation>Error al abrir.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Error al guardar.</translation>
    </message>
</context>
<context>
    <name>ExportFacts</name>
    <message>
        <source>Channels as recorded</source>
        <translation>Canales tal como se grabaron</translation>
    </message>
    <message>
        <source>To full scale</source>
        <translation>A fondo de escala</translation>
    </message>
    <message>
        <source>These %1-bit samples export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>Estas muestras de %1 bits se exportan como ruido: la grabadora escribe 24 bits o 32 bits en coma flotante</translation>
    </message>
    <message>
        <source>Only %1 free in this folder</source>
        <translation>Solo %1 libres en esta carpeta</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>Más de 4 GiB: se escribe como RF64, que no todos los programas leen</translation>
    </message>
</context>
<context>
    <name>ExportLevels</name>
    <message>
        <source>Would clip in 24 bit</source>
        <translation>Saturaría en 24 bits</translation>
    </message>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>Saturaría en 24 bits en %n punto</numerusform>
            <numerusform>Saturaría en 24 bits en %n puntos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>Exportando %1</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>a %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
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
        <translation>Cancelando</translation>
    </message>
</context>
<context>
    <name>ExportVC</name>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>Ancho estéreo</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>Tamaño del archivo</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>Sonoridad</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Pico real</translation>
    </message>
    <message>
        <source>Normalize to full scale</source>
        <translation>Normalizar a fondo de escala</translation>
    </message>
    <message>
        <source>Selection only</source>
        <translation>Solo la selección</translation>
    </message>
    <message>
        <source>To a loudness</source>
        <translation>A una sonoridad objetivo</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 bits en coma flotante</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 bits lineales</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>Una sonoridad es un número de −70 a 0.</translation>
    </message>
    <message>
        <source>Silence, and what is shorter than 0.4 s, has no loudness.</source>
        <translation>El silencio, y lo que dura menos de 0,4 s, no tiene sonoridad.</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>The take cannot be read, so its loudness is not known.</source>
        <translation>No se puede leer la toma, así que su sonoridad no se conoce.</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>Conservar la hora de grabación y los marcadores</translation>
    </message>
</context>
<context>
    <name>FieldView</name>
    <message>
        <source>Momentary</source>
        <translation>Momentánea</translation>
    </message>
    <message>
        <source>Momentary loudness</source>
        <translation>Sonoridad momentánea</translation>
    </message>
    <message>
        <source>Short-term</source>
        <translation>A corto plazo</translation>
    </message>
    <message>
        <source>Short-term loudness</source>
        <translation>Sonoridad a corto plazo</translation>
    </message>
    <message>
        <source>Whole take</source>
        <translation>Toma entera</translation>
    </message>
    <message>
        <source>Loudness of the take</source>
        <translation>Sonoridad de la toma</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Pico real</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Stereo scope: Mid is upright, Side is level</source>
        <translation>Vectorscopio: Mid es vertical, Side horizontal</translation>
    </message>
    <message>
        <source>Correlation: +1 is mono; below 0, mono loses sound</source>
        <translation>Correlación: +1 es mono; por debajo de 0, el mono pierde sonido</translation>
    </message>
    <message>
        <source>Loudness of the last 400 ms</source>
        <translation>Sonoridad de los últimos 400 ms</translation>
    </message>
    <message>
        <source>Loudness of the last 3 s</source>
        <translation>Sonoridad de los últimos 3 s</translation>
    </message>
    <message>
        <source>Loudness of the whole take at this width and gain</source>
        <translation>Sonoridad de toda la toma con este ancho y esta ganancia</translation>
    </message>
    <message>
        <source>Greatest level between the samples, at this width and gain</source>
        <translation>Mayor nivel entre las muestras, con este ancho y esta ganancia</translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>Recording, loaded</source>
        <translation>Grabación, cargada</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabación</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exportada</translation>
    </message>
</context>
<context>
    <name>FilePanel</name>
    <message>
        <source>Reading “%1”…</source>
        <translation>Leyendo «%1»…</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>Carpeta superior</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>No se puede leer «%1»: %2</translation>
    </message>
    <message>
        <source>Looking for “%1”…</source>
        <translation>Buscando «%1»…</translation>
    </message>
</context>
<context>
    <name>FolderBrowser</name>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>No se puede leer «%1»: %2</translation>
    </message>
</context>
<context>
    <name>FolderButton</name>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Choose</source>
        <translation>Elegir</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Elegir una carpeta</translation>
    </message>
    <message>
        <source>“%1” is no folder.</source>
        <translation>«%1» no es una carpeta.</translation>
    </message>
</context>
<context>
    <name>GainTickTitle</name>
    <message>
        <source>Scale</source>
        <translation>Escala</translation>
    </message>
</context>
<context>
    <name>HelpVC</name>
    <message>
        <source>Waveform</source>
        <translation>Forma de onda</translation>
    </message>
    <message>
        <source>A click or a drag moves the play head</source>
        <translation>Hacer clic o arrastrar mueve el cabezal</translation>
    </message>
    <message>
        <source>Wheel there</source>
        <translation>Rueda sobre ella</translation>
    </message>
    <message>
        <source>Zooms; with Shift it scrolls</source>
        <translation>Amplía; con Mayús, desplaza</translation>
    </message>
    <message>
        <source>Double click there</source>
        <translation>Doble clic en ella</translation>
    </message>
    <message>
        <source>Shows the whole take</source>
        <translation>Muestra la toma entera</translation>
    </message>
    <message>
        <source>Ruler over it</source>
        <translation>Regla superior</translation>
    </message>
    <message>
        <source>A drag loops; A and B can be moved there</source>
        <translation>Arrastrar crea un bucle; A y B se mueven ahí</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
    </message>
    <message>
        <source>A double click on the knob resets it</source>
        <translation>Un doble clic en el mando la restablece</translation>
    </message>
    <message>
        <source>Width and gain</source>
        <translation>Ancho y ganancia</translation>
    </message>
    <message>
        <source>A click on the value lets you type one</source>
        <translation>Un clic en el valor permite escribir otro</translation>
    </message>
    <message>
        <source>Recorder in the dial</source>
        <translation>Grabadora en el dial</translation>
    </message>
    <message>
        <source>A double click turns to %1°</source>
        <translation>Un doble clic pone %1°</translation>
    </message>
    <message>
        <source>Peaks</source>
        <translation>Picos</translation>
    </message>
    <message>
        <source>A click on a figure or lamp clears them</source>
        <translation>Un clic en una cifra o un piloto los borra</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Clears the loop, or gives up what takes long</source>
        <translation>Borra el bucle o cancela lo que tarda</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Teclas</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Puntero</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Keys and pointer</source>
        <translation>Teclas y puntero</translation>
    </message>
    <message>
        <source>Takes in the list</source>
        <translation>Tomas de la lista</translation>
    </message>
    <message>
        <source>Shift and Ctrl select several; the second button opens a menu</source>
        <translation>Mayús y Ctrl seleccionan varias; un clic derecho abre un menú</translation>
    </message>
</context>
<context>
    <name>IntroductionVC</name>
    <message>
        <source>What mid-side is</source>
        <translation>Qué es Mid-Side</translation>
    </message>
    <message>
        <source>One microphone hears the middle, another the sides. Together they give a stereo image whose width you choose after the recording.</source>
        <translation>Un micrófono oye el centro, otro los lados. Juntos dan una imagen estéreo cuyo ancho se elige después de la grabación.</translation>
    </message>
    <message>
        <source>Open a folder</source>
        <translation>Abrir una carpeta</translation>
    </message>
    <message>
        <source>Choose the folder with your takes at the top left. A double click on a take plays it.</source>
        <translation>Elija arriba a la izquierda la carpeta con sus tomas. Un doble clic en una toma la reproduce.</translation>
    </message>
    <message>
        <source>Turn the width</source>
        <translation>Ajustar el ancho</translation>
    </message>
    <message>
        <source>Drag the dial from MONO to 150° while you listen. Gain makes a take louder or softer.</source>
        <translation>Arrastre el dial de MONO a 150° mientras escucha. La ganancia sube o baja el volumen de una toma.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Export writes what you hear into a new stereo file. The take itself is never changed.</source>
        <translation>Exportar escribe lo que oye en un archivo estéreo nuevo. La toma misma no se cambia nunca.</translation>
    </message>
    <message>
        <source>Plug in the recorder</source>
        <translation>Conectar la grabadora</translation>
    </message>
    <message>
        <source>Connected over USB, it shows the room left on its card and lets you set battery type and auto power off.</source>
        <translation>Conectada por USB, muestra el espacio libre de su tarjeta y permite ajustar el tipo de pilas y el apagado automático.</translation>
    </message>
    <message>
        <source>Welcome to TARN J4 Mixdeck</source>
        <translation>Bienvenido a TARN J4 Mixdeck</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>No volver a mostrar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>Introducción</translation>
    </message>
</context>
<context>
    <name>J4GainSlider</name>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
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
        <translation>Posición</translation>
    </message>
</context>
<context>
    <name>LevelFeed</name>
    <message>
        <source>Greatest level so far; a click clears it</source>
        <translation>Nivel máximo hasta ahora; un clic lo borra</translation>
    </message>
    <message>
        <source>recorder&apos;s rule</source>
        <translation>como la grabadora</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>retención de pico</translation>
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
        <translation>Bucle: marcar A en el cabezal</translation>
    </message>
    <message>
        <source>Loop: mark B at the play head</source>
        <translation>Bucle: marcar B en el cabezal</translation>
    </message>
    <message>
        <source>Loop: clear A and B</source>
        <translation>Bucle: borrar A y B</translation>
    </message>
</context>
<context>
    <name>LoudnessField</name>
    <message>
        <source>Loudness to aim at</source>
        <translation>Sonoridad objetivo</translation>
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
        <translation>La grabadora</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Connect the recorder over USB and switch it on. Its settings can be changed here as soon as it is found.</source>
        <translation>Conecte la grabadora por USB y enciéndala. Sus ajustes se pueden cambiar aquí en cuanto se encuentre.</translation>
    </message>
    <message>
        <source>No recorder is connected</source>
        <translation>No hay grabadora conectada</translation>
    </message>
</context>
<context>
    <name>PathViewer</name>
    <message>
        <source>Current folder</source>
        <translation>Carpeta actual</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>A–B</source>
        <translation>A–B</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Bucle</translation>
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
        <translation>Posición en la toma</translation>
    </message>
    <message>
        <source>Length of the take</source>
        <translation>Duración de la toma</translation>
    </message>
    <message>
        <source>Position: drag or scroll</source>
        <translation>Posición: arrastrar o desplazar la rueda</translation>
    </message>
    <message>
        <source>Volume of what you hear; an export keeps its level</source>
        <translation>Volumen de escucha; una exportación conserva su nivel</translation>
    </message>
</context>
<context>
    <name>QueueModel</name>
    <message>
        <source>Waiting</source>
        <translation>En espera</translation>
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
        <translation>Cancelando</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>Exportada</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelada</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>Progress of all</source>
        <translation>Progreso total</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>Exportaciones</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Cancel the selected exports</source>
        <translation>Cancelar las exportaciones seleccionadas</translation>
    </message>
    <message>
        <source>%1 of %2 exported</source>
        <translation>%1 de %2 exportadas</translation>
    </message>
    <message>
        <source>%1, %2 failed</source>
        <translation>%1, %2 con error</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>Cancelar todo</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>Reason</name>
    <message>
        <source>Not a WAVE file: %1</source>
        <translation>No es un archivo WAVE: %1</translation>
    </message>
    <message>
        <source>shorter than 48 bytes</source>
        <translation>menos de 48 bytes</translation>
    </message>
    <message>
        <source>not a RIFF file</source>
        <translation>no es un archivo RIFF</translation>
    </message>
    <message>
        <source>a RIFF file, but not WAVE</source>
        <translation>un archivo RIFF, pero no WAVE</translation>
    </message>
    <message>
        <source>an RF64 file without its sizes (ds64 chunk)</source>
        <translation>un archivo RF64 sin sus tamaños (chunk ds64)</translation>
    </message>
    <message>
        <source>more chunks than a recording has</source>
        <translation>más chunks de los que tiene una grabación</translation>
    </message>
    <message>
        <source>no format chunk</source>
        <translation>sin chunk de formato</translation>
    </message>
    <message>
        <source>no data chunk</source>
        <translation>sin chunk de datos</translation>
    </message>
    <message>
        <source>No broadcast extension (bext chunk)</source>
        <translation>Sin extensión broadcast (chunk bext)</translation>
    </message>
    <message>
        <source>The broadcast extension has %1 bytes, fewer than %2</source>
        <translation>La extensión broadcast tiene %1 bytes, menos de %2</translation>
    </message>
    <message>
        <source>Not a recording of the %1: its originator is &quot;%2&quot;</source>
        <translation>No es una grabación de la %1: su origen es «%2»</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>No es un archivo normal</translation>
    </message>
    <message>
        <source>The file became shorter</source>
        <translation>El archivo se ha acortado</translation>
    </message>
    <message>
        <source>The file has been deleted</source>
        <translation>El archivo se ha eliminado</translation>
    </message>
    <message>
        <source>No recording is open</source>
        <translation>No hay ninguna grabación abierta</translation>
    </message>
    <message>
        <source>The target is the source itself</source>
        <translation>El destino es el propio origen</translation>
    </message>
    <message>
        <source>The export would take %1 bytes; a WAVE file ends at 4 GiB</source>
        <translation>La exportación ocuparía %1 bytes; un archivo WAVE acaba en 4 GiB</translation>
    </message>
    <message>
        <source>The source cannot be read: %1</source>
        <translation>No se puede leer el origen: %1</translation>
    </message>
    <message>
        <source>The recording has no loudness at this width: it is silent or shorter than 0.4 s</source>
        <translation>La grabación no tiene sonoridad con este ancho: es silencio o dura menos de 0,4 s</translation>
    </message>
    <message>
        <source>No file can be read</source>
        <translation>No se puede leer ningún archivo</translation>
    </message>
    <message>
        <source>Samples of %1 bits in format %2 cannot be played</source>
        <translation>No se pueden reproducir muestras de %1 bits en formato %2</translation>
    </message>
    <message>
        <source>There are no channels</source>
        <translation>No hay canales</translation>
    </message>
    <message>
        <source>There is no sample rate</source>
        <translation>No hay frecuencia de muestreo</translation>
    </message>
    <message>
        <source>No sound server was found (%1).</source>
        <translation>No se encontró ningún servidor de sonido (%1).</translation>
    </message>
    <message>
        <source>The sound server has gone (%1).</source>
        <translation>El servidor de sonido ha desaparecido (%1).</translation>
    </message>
    <message>
        <source>The sound server did not answer.</source>
        <translation>El servidor de sonido no respondió.</translation>
    </message>
    <message>
        <source>The sound output was not there (%1).</source>
        <translation>La salida de sonido no estaba disponible (%1).</translation>
    </message>
    <message>
        <source>The sound output has stopped.</source>
        <translation>La salida de sonido se ha detenido.</translation>
    </message>
    <message>
        <source>The sound output could not be started (%1).</source>
        <translation>No se pudo iniciar la salida de sonido (%1).</translation>
    </message>
    <message>
        <source>The sound output does not take %1 channels at %2 Hz.</source>
        <translation>La salida de sonido no admite %1 canales a %2 Hz.</translation>
    </message>
    <message>
        <source>no thread can be had</source>
        <translation>no se puede obtener ningún hilo</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>No existe el archivo o la carpeta</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Permiso denegado</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Operación no permitida</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Error de entrada/salida</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>No queda espacio en el dispositivo</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Cuota de disco excedida</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>Sistema de archivos de solo lectura</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>El archivo ya existe</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Archivo demasiado grande</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Nombre de archivo demasiado largo</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Es una carpeta</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>No es una carpeta</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Argumento no válido</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>No existe el dispositivo</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Acceso a archivo obsoleto</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Demasiados archivos abiertos</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>Conexión rechazada</translation>
    </message>
    <message>
        <source>Connection terminated</source>
        <translation>Conexión terminada</translation>
    </message>
    <message>
        <source>Sample bytes have been written already</source>
        <translation>Ya se han escrito muestras</translation>
    </message>
    <message>
        <source>The file was dropped before it was saved</source>
        <translation>El archivo se descartó antes de guardarse</translation>
    </message>
    <message>
        <source>The file has been saved already</source>
        <translation>El archivo ya está guardado</translation>
    </message>
    <message>
        <source>The file was written for another place</source>
        <translation>El archivo se escribió para otro lugar</translation>
    </message>
    <message>
        <source>There are too many channels, or too many frames a second.</source>
        <translation>Hay demasiados canales o demasiadas muestras por segundo.</translation>
    </message>
    <message>
        <source>There is no ALSA sequencer here (%1).</source>
        <translation>Aquí no hay secuenciador ALSA (%1).</translation>
    </message>
    <message>
        <source>No permission to use the ALSA sequencer (%1).</source>
        <translation>Sin permiso para usar el secuenciador ALSA (%1).</translation>
    </message>
    <message>
        <source>The ALSA sequencer cannot be used (%1: %2).</source>
        <translation>No se puede usar el secuenciador ALSA (%1: %2).</translation>
    </message>
    <message>
        <source>The ALSA sequencer has gone (%1).</source>
        <translation>El secuenciador ALSA ha desaparecido (%1).</translation>
    </message>
    <message>
        <source>This kernel or alsa-lib has no Universal MIDI Packets, which were asked for.</source>
        <translation>Este núcleo o alsa-lib no tiene los Universal MIDI Packets que se pidieron.</translation>
    </message>
    <message>
        <source>Markers and descriptions of the recording cannot be read</source>
        <translation>No se pueden leer los marcadores y descripciones de la grabación</translation>
    </message>
    <message>
        <source>No audio: the data chunk states %1 bytes, the file holds %2 after it</source>
        <translation>Sin audio: el chunk de datos indica %1 bytes, el archivo tiene %2 después</translation>
    </message>
    <message>
        <source>Cut short: the data chunk states %1 bytes, the file holds %2</source>
        <translation>Cortado: el chunk de datos indica %1 bytes, el archivo tiene %2</translation>
    </message>
    <message>
        <source>%1 channels of %2-bit samples with format tag %3 do not decode to useful sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)</source>
        <translation>%1 canales de muestras de %2 bits en formato %3 no dan un sonido útil; la grabadora escribe 2 canales, de 24 bits enteros o 32 bits en coma flotante (formato 3)</translation>
    </message>
    <message>
        <source>The take cannot be read: %1</source>
        <translation>No se puede leer la toma: %1</translation>
    </message>
    <message>
        <source>The card cannot be read: %1</source>
        <translation>No se puede leer la tarjeta: %1</translation>
    </message>
    <message>
        <source>The card is no folder</source>
        <translation>La tarjeta no es una carpeta</translation>
    </message>
    <message>
        <source>The card is never written to, but holds the folder</source>
        <translation>Nunca se escribe en la tarjeta, pero la carpeta está en ella</translation>
    </message>
    <message>
        <source>The card holds no takes</source>
        <translation>La tarjeta no contiene tomas</translation>
    </message>
    <message>
        <source>The card is gone</source>
        <translation>La tarjeta ya no está</translation>
    </message>
    <message>
        <source>The folder cannot be made: %1</source>
        <translation>No se puede crear la carpeta: %1</translation>
    </message>
    <message>
        <source>The folder cannot be written to: %1</source>
        <translation>No se puede escribir en la carpeta: %1</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1</source>
        <translation>No se puede leer la carpeta: %1</translation>
    </message>
    <message>
        <source>Another copy is at work there</source>
        <translation>Otra copia está en marcha ahí</translation>
    </message>
    <message>
        <source>A copy is at work there</source>
        <translation>Hay una copia en marcha ahí</translation>
    </message>
    <message>
        <source>The folder is being verified</source>
        <translation>Se está verificando la carpeta</translation>
    </message>
    <message>
        <source>The manifest cannot be read: %1</source>
        <translation>No se puede leer el manifiesto: %1</translation>
    </message>
    <message>
        <source>The manifest cannot be written: %1</source>
        <translation>No se puede escribir el manifiesto: %1</translation>
    </message>
    <message>
        <source>It has no manifest (%1)</source>
        <translation>No tiene manifiesto (%1)</translation>
    </message>
    <message>
        <source>The takes and their manifest need %1 bytes, and %2 are free</source>
        <translation>Las tomas y su manifiesto necesitan %1 bytes y hay %2 libres</translation>
    </message>
    <message>
        <source>Its name is not UTF-8, and cannot stand in a manifest</source>
        <translation>Su nombre no es UTF-8 y no puede constar en un manifiesto</translation>
    </message>
    <message>
        <source>What is there is no file</source>
        <translation>Lo que hay ahí no es un archivo</translation>
    </message>
    <message>
        <source>The take has %1 bytes, the file that is there %2</source>
        <translation>La toma tiene %1 bytes; el archivo que hay, %2</translation>
    </message>
    <message>
        <source>The file that is there has another content</source>
        <translation>El archivo que hay tiene otro contenido</translation>
    </message>
    <message>
        <source>It was changed while it was read</source>
        <translation>Cambió mientras se leía</translation>
    </message>
    <message>
        <source>What was written does not read back as it was</source>
        <translation>Lo escrito no se vuelve a leer igual</translation>
    </message>
    <message>
        <source>the manifest has no hash of it that is known here</source>
        <translation>el manifiesto no tiene de él ningún hash que se conozca aquí</translation>
    </message>
    <message>
        <source>%1 bytes, not %2</source>
        <translation>%1 bytes, no %2</translation>
    </message>
    <message>
        <source>another content</source>
        <translation>otro contenido</translation>
    </message>
    <message>
        <source>it cannot be listed</source>
        <translation>no se puede listar su contenido</translation>
    </message>
    <message>
        <source>it is not well-formed</source>
        <translation>no está bien formado</translation>
    </message>
    <message>
        <source>it is no such list</source>
        <translation>no es una lista de ese tipo</translation>
    </message>
    <message>
        <source>a path in it leads out of the folder</source>
        <translation>una ruta en él sale de la carpeta</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>no se puede leer</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>falta</translation>
    </message>
    <message>
        <source>it is not in the chain</source>
        <translation>no está en la cadena</translation>
    </message>
    <message>
        <source>it was changed after it was written</source>
        <translation>se modificó después de escribirse</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>No hay suficiente memoria</translation>
    </message>
    <message>
        <source>the data chunk states %1 bytes, the file holds %2</source>
        <translation>el chunk de datos indica %1 bytes, el archivo tiene %2</translation>
    </message>
    <message>
        <source>1 byte of half a frame at the end</source>
        <translation>1 byte de una trama incompleta al final</translation>
    </message>
    <message>
        <source>%1 bytes of half a frame at the end</source>
        <translation>%1 bytes de una trama incompleta al final</translation>
    </message>
    <message>
        <source>%1 zero bytes at the end, where no sound was written</source>
        <translation>%1 bytes a cero al final, donde no se escribió sonido</translation>
    </message>
    <message>
        <source>the file states %1 bytes, and has %2</source>
        <translation>el archivo indica %1 bytes y tiene %2</translation>
    </message>
    <message>
        <source>%1 zero bytes after the end of the take</source>
        <translation>%1 bytes a cero tras el final de la toma</translation>
    </message>
    <message>
        <source>it does not begin as a WAVE file</source>
        <translation>no empieza como un archivo WAVE</translation>
    </message>
    <message>
        <source>its format has no frames</source>
        <translation>su formato no tiene tramas</translation>
    </message>
    <message>
        <source>there is no format chunk before the sound</source>
        <translation>no hay chunk de formato antes del sonido</translation>
    </message>
    <message>
        <source>no sound is found in it (data chunk)</source>
        <translation>no se encuentra sonido en él (chunk de datos)</translation>
    </message>
    <message>
        <source>no sound was written to it</source>
        <translation>no se escribió sonido en él</translation>
    </message>
</context>
<context>
    <name>RecorderSettings</name>
    <message>
        <source>Alkaline</source>
        <translation>Alcalinas</translation>
    </message>
    <message>
        <source>Ni-MH</source>
        <translation>Ni-MH</translation>
    </message>
    <message>
        <source>Lithium</source>
        <translation>Litio</translation>
    </message>
    <message>
        <source>Li-ion</source>
        <translation>Li-ion</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 minutos</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 minutos</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 hora</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desactivado</translation>
    </message>
</context>
<context>
    <name>RepairOffer</name>
    <message>
        <source>The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The take itself stays as it is.</source>
        <translation>La grabación de %1 se interrumpió. Se pueden rescatar %2 s de sonido en %3, junto a ella. La toma misma queda como está.</translation>
    </message>
    <message>
        <source>Salvage</source>
        <translation>Rescatar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>%1 is being salvaged…</source>
        <translation>Rescatando %1…</translation>
    </message>
    <message>
        <source>%1 was not saved: %2.</source>
        <translation>%1 no se ha guardado: %2.</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>Error al guardar.</translation>
    </message>
    <message>
        <source>What was found:</source>
        <translation>Lo que se ha encontrado:</translation>
    </message>
    <message>
        <source>%1 is salvaged into %2.</source>
        <translation>%1 se ha rescatado en %2.</translation>
    </message>
</context>
<context>
    <name>RowMenu</name>
    <message>
        <source>What is selected</source>
        <translation>Lo seleccionado</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>&amp;Export %1…</source>
        <translation>&amp;Exportar %1…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportar…</translation>
    </message>
    <message>
        <source>&amp;Show in file manager</source>
        <translation>&amp;Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>&amp;Copy path</source>
        <translation>&amp;Copiar la ruta</translation>
    </message>
    <message>
        <source>&amp;Copy paths</source>
        <translation>&amp;Copiar las rutas</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>&amp;Información</translation>
    </message>
</context>
<context>
    <name>RowReader</name>
    <message>
        <source>width %1°</source>
        <translation>ancho %1°</translation>
    </message>
    <message>
        <source>gain %1 dB</source>
        <translation>ganancia %1 dB</translation>
    </message>
    <message>
        <source>Exported as %1: %2</source>
        <translation>Exportada como %1: %2</translation>
    </message>
</context>
<context>
    <name>SavePanel</name>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Folders and recordings</source>
        <translation>Carpetas y grabaciones</translation>
    </message>
    <message>
        <source>Saving checkboard...</source>
        <translation>Guardar la exportación</translation>
    </message>
    <message>
        <source>Please select a path where to save decoded wav.</source>
        <translation>Elija dónde guardar el archivo WAV decodificado.</translation>
    </message>
    <message>
        <source>Create new folder</source>
        <translation>Crear carpeta</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>El nombre es demasiado largo.</translation>
    </message>
    <message>
        <source>“%1” exists. Replace it?</source>
        <translation>«%1» ya existe. ¿Reemplazar?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Carpeta nueva</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nombre de la carpeta nueva:</translation>
    </message>
    <message>
        <source>Making “%1”…</source>
        <translation>Creando «%1»…</translation>
    </message>
    <message>
        <source>“%1” cannot be made: %2</source>
        <translation>No se puede crear «%1»: %2</translation>
    </message>
</context>
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>%n toma</numerusform>
            <numerusform>%n tomas</numerusform>
        </translation>
    </message>
    <message>
        <source>Export %1…</source>
        <translation>Exportar %1…</translation>
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
        <translation>Un doble clic pone %1°, suma y diferencia simples</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Silenciar</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Activar el sonido</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Type the stereo width</source>
        <translation>Escribir el ancho estéreo</translation>
    </message>
    <message>
        <source>Type the gain</source>
        <translation>Escribir la ganancia</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stereo width</source>
        <translation>Ancho estéreo</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Gain scale</source>
        <translation>Escala de ganancia</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>Ganancia</translation>
    </message>
    <message>
        <source>Level scale</source>
        <translation>Escala de nivel</translation>
    </message>
    <message>
        <source>Level left</source>
        <translation>Nivel izquierdo</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>I</translation>
    </message>
    <message>
        <source>Level right</source>
        <translation>Nivel derecho</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>D</translation>
    </message>
    <message>
        <source>Peak left</source>
        <translation>Pico izquierdo</translation>
    </message>
    <message>
        <source>Clip left</source>
        <translation>Saturación izquierda</translation>
    </message>
    <message>
        <source>Peak right</source>
        <translation>Pico derecho</translation>
    </message>
    <message>
        <source>Clip right</source>
        <translation>Saturación derecha</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Nivel</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>retención de pico</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>La grabadora</translation>
    </message>
    <message>
        <source>Gain: drag or scroll; a double click sets 0 dB</source>
        <translation>Ganancia: arrastrar o desplazar la rueda; un doble clic la pone a 0 dB</translation>
    </message>
    <message>
        <source>Level of the left channel, before the volume</source>
        <translation>Nivel del canal izquierdo, antes del volumen</translation>
    </message>
    <message>
        <source>Level of the right channel, before the volume</source>
        <translation>Nivel del canal derecho, antes del volumen</translation>
    </message>
</context>
<context>
    <name>StayAwake</name>
    <message>
        <source>Recordings are being exported or copied</source>
        <translation>Se están exportando o copiando grabaciones</translation>
    </message>
</context>
<context>
    <name>StereoScope</name>
    <message>
        <source>Stereo scope</source>
        <translation>Vectorscopio</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>I</translation>
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
        <translation>sí</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>%1 channels, %2 Hz, %3-bit %4</source>
        <translation>%1 canales, %2 Hz, %3 bits %4</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Of the recorder</source>
        <translation>De la grabadora</translation>
    </message>
    <message>
        <source>Raw M/S</source>
        <translation>M/S sin procesar</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Tramas</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>%1 bytes at %2</source>
        <translation>%1 bytes en %2</translation>
    </message>
    <message>
        <source>, and %1 more of it</source>
        <translation>, y %1 más</translation>
    </message>
    <message>
        <source>integer PCM</source>
        <translation>PCM entero</translation>
    </message>
    <message>
        <source>IEEE float</source>
        <translation>coma flotante IEEE</translation>
    </message>
    <message>
        <source>extensible</source>
        <translation>extensible</translation>
    </message>
    <message>
        <source>other</source>
        <translation>otro</translation>
    </message>
</context>
<context>
    <name>TakeInformation</name>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Leyendo…</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>No thread can be had to read it.</source>
        <translation>No se puede obtener ningún hilo para leerlo.</translation>
    </message>
    <message>
        <source>Chunks</source>
        <translation>Chunks</translation>
    </message>
    <message>
        <source>Broadcast extension</source>
        <translation>Extensión broadcast</translation>
    </message>
    <message>
        <source>Figures at %1° and %2 dB</source>
        <translation>Valores a %1° y %2 dB</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Midiendo…</translation>
    </message>
    <message>
        <source>Integrated loudness</source>
        <translation>Sonoridad integrada</translation>
    </message>
    <message>
        <source>Loudness range</source>
        <translation>Rango de sonoridad</translation>
    </message>
    <message>
        <source>Momentary, at most</source>
        <translation>Momentánea, máxima</translation>
    </message>
    <message>
        <source>Short-term, at most</source>
        <translation>A corto plazo, máxima</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>Pico real</translation>
    </message>
    <message>
        <source>Sample peak</source>
        <translation>Pico de muestra</translation>
    </message>
    <message>
        <source>Correlation</source>
        <translation>Correlación</translation>
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
        <translation>Abriendo %1… (Esc cancela)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>File not supported.</source>
        <translation>Archivo no compatible.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Open it again once it is back.</source>
        <translation>No se puede leer %1: %2. Ábralo de nuevo cuando vuelva a estar disponible.</translation>
    </message>
    <message>
        <source>Paused: %1 Press Play to try again.</source>
        <translation>En pausa: %1 Pulse Reproducir para reintentar.</translation>
    </message>
</context>
<context>
    <name>TakeRecall</name>
    <message>
        <source>What was remembered of takes was damaged. It was set aside as “%1”, and a new one begun.</source>
        <translation>Los datos recordados de las tomas estaban dañados. Se apartaron como «%1» y se empezaron otros.</translation>
    </message>
    <message>
        <source>What is remembered of takes is of a newer version of the program. It is left alone, and nothing is remembered.</source>
        <translation>Los datos recordados de las tomas son de una versión más reciente del programa. Quedan intactos y no se recuerda nada.</translation>
    </message>
    <message>
        <source>What takes were heard with cannot be remembered.</source>
        <translation>No se pueden recordar los ajustes con que se escucharon las tomas.</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>About %1 s left</source>
        <translation>Quedan unos %1 s</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>Quedan unos %1 min</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>%1 of %2 takes</source>
        <translation>%1 de %2 tomas</translation>
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
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>Cancelando</translation>
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
        <translation>No se pudo listar todo.</translation>
    </message>
    <message>
        <source>The manifest itself is not right.</source>
        <translation>El propio manifiesto no es correcto.</translation>
    </message>
    <message>
        <source>%1 could not be listed: %2</source>
        <translation>No se pudo listar %1: %2</translation>
    </message>
    <message>
        <source>The manifest is not right: %1</source>
        <translation>El manifiesto no es correcto: %1</translation>
    </message>
    <message>
        <source>%1: copied and verified</source>
        <translation>%1: copiada y verificada</translation>
    </message>
    <message>
        <source>%1: there already</source>
        <translation>%1: ya estaba</translation>
    </message>
    <message>
        <source>%1 differs: %2</source>
        <translation>%1 es distinta: %2</translation>
    </message>
    <message>
        <source>%1 was not copied: %2</source>
        <translation>%1 no se copió: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n toma presente y verificada</numerusform>
            <numerusform>%n tomas presentes y verificadas</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 takes are there and verified</source>
        <translation>%1 de %2 tomas presentes y verificadas</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Cancelado.</translation>
    </message>
    <message>
        <source>What was copied stays; the next copy goes on from there.</source>
        <translation>Lo copiado queda; la próxima copia sigue desde ahí.</translation>
    </message>
    <message>
        <source>%1 has changed: %2</source>
        <translation>%1 ha cambiado: %2</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>Falta %1</translation>
    </message>
    <message>
        <source>%1 is now %2</source>
        <translation>%1 ahora es %2</translation>
    </message>
    <message>
        <source>%1 is new</source>
        <translation>%1 es nuevo</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>No se puede leer %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n archivo es correcto</numerusform>
            <numerusform>%n archivos son correctos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 right, %2 not</source>
        <translation>%1 correctos, %2 no</translation>
    </message>
</context>
<context>
    <name>TransportPane</name>
    <message>
        <source>Raw M/S</source>
        <translation>M/S sin procesar</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>Estéreo</translation>
    </message>
    <message>
        <source>%1-bit float</source>
        <translation>%1 bits en coma flotante</translation>
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
        <translation>Haga doble clic en una grabación para reproducirla</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
</context>
<context>
    <name>ValueField</name>
    <message>
        <source>Click to type a value</source>
        <translation>Haga clic para escribir un valor</translation>
    </message>
</context>
<context>
    <name>WaveformViewer</name>
    <message>
        <source>Waveform</source>
        <translation>Forma de onda</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>I</translation>
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
        <translation>No se pudo abrir ningún navegador. La ayuda está en %1</translation>
    </message>
    <message>
        <source>Solo is for listening: Left and Right are exported.</source>
        <translation>El solo es para escuchar: se exportan izquierda y derecha.</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Open folder…</source>
        <translation>&amp;Abrir carpeta…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportar…</translation>
    </message>
    <message>
        <source>&amp;Clear peaks</source>
        <translation>&amp;Borrar picos</translation>
    </message>
    <message>
        <source>&amp;Meters by the recorder&apos;s rule</source>
        <translation>&amp;Medidores según la regla de la grabadora</translation>
    </message>
    <message>
        <source>&amp;Keys and pointer</source>
        <translation>&amp;Teclas y puntero</translation>
    </message>
    <message>
        <source>&amp;Introduction</source>
        <translation>&amp;Introducción</translation>
    </message>
    <message>
        <source>Online &amp;help</source>
        <translation>Ayuda en &amp;línea</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>A&amp;cerca de</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>&amp;Reproducción</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>&amp;Reproducir o pausar</translation>
    </message>
    <message>
        <source>&amp;Back 1 s</source>
        <translation>R&amp;etroceder 1 s</translation>
    </message>
    <message>
        <source>&amp;Forward 1 s</source>
        <translation>&amp;Avanzar 1 s</translation>
    </message>
    <message>
        <source>Back 10 s</source>
        <translation>Retroceder 10 s</translation>
    </message>
    <message>
        <source>Forward 10 s</source>
        <translation>Avanzar 10 s</translation>
    </message>
    <message>
        <source>To the be&amp;ginning</source>
        <translation>Ir al &amp;principio</translation>
    </message>
    <message>
        <source>To the &amp;end</source>
        <translation>Ir al &amp;final</translation>
    </message>
    <message>
        <source>&amp;Louder by 1 dB</source>
        <translation>&amp;Subir 1 dB</translation>
    </message>
    <message>
        <source>&amp;Softer by 1 dB</source>
        <translation>&amp;Bajar 1 dB</translation>
    </message>
    <message>
        <source>&amp;Wider by 5°</source>
        <translation>E&amp;nsanchar 5°</translation>
    </message>
    <message>
        <source>&amp;Narrower by 5°</source>
        <translation>Es&amp;trechar 5°</translation>
    </message>
    <message>
        <source>L&amp;oop: A, B, clear</source>
        <translation>Buc&amp;le: A, B, borrar</translation>
    </message>
    <message>
        <source>Solo &amp;Mid</source>
        <translation>Solo &amp;Mid</translation>
    </message>
    <message>
        <source>Solo S&amp;ide</source>
        <translation>Solo S&amp;ide</translation>
    </message>
    <message>
        <source>&amp;Remember width, gain and loop</source>
        <translation>Rec&amp;ordar ancho, ganancia y bucle</translation>
    </message>
    <message>
        <source>Order of the &amp;list</source>
        <translation>Or&amp;den de la lista</translation>
    </message>
    <message>
        <source>By &amp;name</source>
        <translation>Por &amp;nombre</translation>
    </message>
    <message>
        <source>By &amp;recording time</source>
        <translation>Por &amp;hora de grabación</translation>
    </message>
    <message>
        <source>By &amp;duration</source>
        <translation>Por &amp;duración</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Copy car&amp;d…</source>
        <translation>Co&amp;piar tarjeta…</translation>
    </message>
    <message>
        <source>&amp;Verify folder…</source>
        <translation>&amp;Verificar carpeta…</translation>
    </message>
</context>
</TS>
