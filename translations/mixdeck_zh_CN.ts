<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AboutVC</name>
    <message>
        <source>Logo</source>
        <translation>徽标</translation>
    </message>
    <message>
        <source>Desktop companion of the TARN J4 recorder</source>
        <translation>TARN J4 录音机的桌面伴侣</translation>
    </message>
    <message>
        <source>Copyright 2026 The Mixdeck developers
MIT license</source>
        <translation>Copyright 2026 The Mixdeck developers
MIT 许可证</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Copy details</source>
        <translation>复制详细信息</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>AngleViewer</name>
    <message>
        <source>Stereo width</source>
        <translation>立体声宽度</translation>
    </message>
    <message>
        <source>MONO</source>
        <translation>单声道</translation>
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
        <translation>录音机已连接。</translation>
    </message>
    <message>
        <source>The recorder is no longer connected.</source>
        <translation>录音机已断开。</translation>
    </message>
    <message>
        <source>%1 is exported.</source>
        <translation>%1 已导出。</translation>
    </message>
    <message>
        <source>%1 of %2 takes are exported.</source>
        <translation>%2 条录音中有 %1 条已导出。</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n 条录音已导出。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchChoices</name>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 位线性</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 位浮点</translation>
    </message>
    <message>
        <source>Normalize each to full scale</source>
        <translation>每条归一化到满刻度</translation>
    </message>
    <message>
        <source>Each to a loudness</source>
        <translation>每条调至目标响度</translation>
    </message>
    <message>
        <source>Beside each take</source>
        <translation>每条录音旁边</translation>
    </message>
    <message>
        <source>Into a folder</source>
        <translation>存入文件夹</translation>
    </message>
    <message>
        <source>Folder for the exports</source>
        <translation>导出文件夹</translation>
    </message>
    <message>
        <source>Where an export exists</source>
        <translation>导出已存在时</translation>
    </message>
    <message>
        <source>Skip the take</source>
        <translation>跳过该录音</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Number the new one</source>
        <translation>为新文件编号</translation>
    </message>
    <message>
        <source>Each at its remembered width and gain</source>
        <translation>每条按其记住的宽度和增益</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>保留录制时间和标记</translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message>
        <source>One take was not exported.</source>
        <translation>有一条录音未能导出。</translation>
    </message>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n 条录音未能导出。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>%1 exists</source>
        <translation>%1 已存在</translation>
    </message>
    <message>
        <source>%1 is itself among the takes</source>
        <translation>%1 本身就在录音之中</translation>
    </message>
    <message>
        <source>%1 is about to be written</source>
        <translation>%1 即将写入</translation>
    </message>
    <message>
        <source>%1 is to be the export of %2</source>
        <translation>%1 将是 %2 的导出</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>导出 %n 条录音</numerusform>
        </translation>
    </message>
    <message>
        <source>Takes that will not be exported</source>
        <translation>不会导出的录音</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>立体声宽度</translation>
    </message>
    <message>
        <source>%1° for all</source>
        <translation>全部 %1°</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>空间</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>导出 %1</translation>
    </message>
    <message>
        <source>To %1 LUFS</source>
        <translation>至 %1 LUFS</translation>
    </message>
    <message>
        <source>%1, of %2 that are free</source>
        <translation>%1，可用 %2</translation>
    </message>
    <message>
        <source>The takes cannot be looked at: %1.</source>
        <translation>无法查看录音：%1。</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>响度是 −70 到 0 之间的数值。</translation>
    </message>
    <message>
        <source>There is too little room: the last of them will not be written</source>
        <translation>空间不足：最后几条不会写入</translation>
    </message>
    <message>
        <source>Samples of some of them export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>其中一些录音的采样导出后是噪声：录音机以 24 位或 32 位浮点录制</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>超过 4 GiB：写为 RF64，并非所有程序都能读取</translation>
    </message>
    <message>
        <source>One will not be exported:</source>
        <translation>有一条不会导出：</translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n 条不会导出：</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>As remembered, else %1</source>
        <translation>按记住的值，否则 %1</translation>
    </message>
</context>
<context>
    <name>BrowserPane</name>
    <message>
        <source>Looking for “%1”… (Esc gives up)</source>
        <translation>正在查找“%1”…（按 Esc 放弃）</translation>
    </message>
    <message>
        <source>Open folder, now %1</source>
        <translation>打开文件夹，当前为 %1</translation>
    </message>
</context>
<context>
    <name>BrowserView</name>
    <message>
        <source>Go up</source>
        <translation>向上</translation>
    </message>
    <message>
        <source>Current folder</source>
        <translation>当前文件夹</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>打开文件夹</translation>
    </message>
</context>
<context>
    <name>CardDesk</name>
    <message>
        <source>The card “%1” holds recordings. “Copy card…” in the menu brings them home.</source>
        <translation>存储卡“%1”中有录音。菜单中的“复制存储卡…”可将其复制到电脑。</translation>
    </message>
    <message>
        <source>Copy card</source>
        <translation>复制存储卡</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>录音</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>存储卡</translation>
    </message>
    <message>
        <source>Into</source>
        <translation>复制到</translation>
    </message>
    <message>
        <source>Verify folder</source>
        <translation>校验文件夹</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>校验</translation>
    </message>
    <message>
        <source>Files that are not right</source>
        <translation>不正确的文件</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
</context>
<context>
    <name>ClipLamp</name>
    <message>
        <source>over full scale</source>
        <translation>超过满刻度</translation>
    </message>
    <message>
        <source>not over full scale</source>
        <translation>未超过满刻度</translation>
    </message>
</context>
<context>
    <name>CorrelationBar</name>
    <message>
        <source>Correlation</source>
        <translation>相关度</translation>
    </message>
</context>
<context>
    <name>CostView</name>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>响度</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>真峰值</translation>
    </message>
</context>
<context>
    <name>DevicePane</name>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Ver. %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>未连接</translation>
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
        <translation>已用 %1 / %2</translation>
    </message>
</context>
<context>
    <name>DeviceView</name>
    <message>
        <source>Simulated recorder</source>
        <translation>模拟的录音机</translation>
    </message>
    <message>
        <source>No recorder can be found here.</source>
        <translation>此处无法找到录音机。</translation>
    </message>
    <message>
        <source>Card used</source>
        <translation>存储卡用量</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>剩余</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>Auto power off</source>
        <translation>自动关机</translation>
    </message>
    <message>
        <source>%1, no recorder connected</source>
        <translation>%1，未连接录音机</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>录音机</translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message>
        <source>Takes are still being copied. What is copied stays; the next copy goes on from there.</source>
        <translation>仍在复制录音。已复制的会保留；下次复制从那里继续。</translation>
    </message>
    <message>
        <source>Keep copying</source>
        <translation>继续复制</translation>
    </message>
    <message>
        <source>Stop and quit</source>
        <translation>停止并退出</translation>
    </message>
    <message>
        <source>Keep working</source>
        <translation>继续进行</translation>
    </message>
    <message>
        <source>Stop all and quit</source>
        <translation>全部停止并退出</translation>
    </message>
    <message>
        <source>An export is still running. Ending now cancels it.</source>
        <translation>导出仍在进行。现在退出会取消导出。</translation>
    </message>
    <message>
        <source>Keep exporting</source>
        <translation>继续导出</translation>
    </message>
    <message>
        <source>Cancel export and quit</source>
        <translation>取消导出并退出</translation>
    </message>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n 个导出正在进行或等待。现在退出会将其取消。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel exports and quit</source>
        <translation>取消导出并退出</translation>
    </message>
</context>
<context>
    <name>ExportDesk</name>
    <message>
        <source>%1 was not exported: %2.</source>
        <translation>%1 未能导出：%2。</translation>
    </message>
    <message>
        <source>Fail to open.</source>
        <translation>打开失败。</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>保存失败。</translation>
    </message>
</context>
<context>
    <name>ExportFacts</name>
    <message>
        <source>Channels as recorded</source>
        <translation>声道保持录制原样</translation>
    </message>
    <message>
        <source>To full scale</source>
        <translation>至满刻度</translation>
    </message>
    <message>
        <source>These %1-bit samples export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>这些 %1 位采样导出后是噪声：录音机以 24 位或 32 位浮点录制</translation>
    </message>
    <message>
        <source>Only %1 free in this folder</source>
        <translation>此文件夹仅剩 %1 可用空间</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>超过 4 GiB：写为 RF64，并非所有程序都能读取</translation>
    </message>
</context>
<context>
    <name>ExportLevels</name>
    <message>
        <source>Would clip in 24 bit</source>
        <translation>24 位下会削波</translation>
    </message>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>24 位下会有 %n 处削波</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>正在导出 %1</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>到 %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>正在取消</translation>
    </message>
</context>
<context>
    <name>ExportVC</name>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>立体声宽度</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>文件大小</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>响度</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>真峰值</translation>
    </message>
    <message>
        <source>Normalize to full scale</source>
        <translation>归一化到满刻度</translation>
    </message>
    <message>
        <source>Selection only</source>
        <translation>仅所选范围</translation>
    </message>
    <message>
        <source>To a loudness</source>
        <translation>调至目标响度</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 位浮点</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 位线性</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>响度是 −70 到 0 之间的数值。</translation>
    </message>
    <message>
        <source>Silence, and what is shorter than 0.4 s, has no loudness.</source>
        <translation>静音以及短于 0.4 秒的内容没有响度。</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>The take cannot be read, so its loudness is not known.</source>
        <translation>无法读取录音，因此响度未知。</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>保留录制时间和标记</translation>
    </message>
</context>
<context>
    <name>FieldView</name>
    <message>
        <source>Momentary</source>
        <translation>瞬时</translation>
    </message>
    <message>
        <source>Momentary loudness</source>
        <translation>瞬时响度</translation>
    </message>
    <message>
        <source>Short-term</source>
        <translation>短期</translation>
    </message>
    <message>
        <source>Short-term loudness</source>
        <translation>短期响度</translation>
    </message>
    <message>
        <source>Whole take</source>
        <translation>整条录音</translation>
    </message>
    <message>
        <source>Loudness of the take</source>
        <translation>整条录音的响度</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>真峰值</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>声像</translation>
    </message>
    <message>
        <source>Stereo scope: Mid is upright, Side is level</source>
        <translation>矢量示波器：竖直为中间，水平为侧边</translation>
    </message>
    <message>
        <source>Correlation: +1 is mono; below 0, mono loses sound</source>
        <translation>相关度：+1 为单声道；低于 0 时，单声道会损失声音</translation>
    </message>
    <message>
        <source>Loudness of the last 400 ms</source>
        <translation>最近 400 ms 的响度</translation>
    </message>
    <message>
        <source>Loudness of the last 3 s</source>
        <translation>最近 3 秒的响度</translation>
    </message>
    <message>
        <source>Loudness of the whole take at this width and gain</source>
        <translation>在此宽度和增益下整条录音的响度</translation>
    </message>
    <message>
        <source>Greatest level between the samples, at this width and gain</source>
        <translation>在此宽度和增益下采样点之间的最大电平</translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>Recording, loaded</source>
        <translation>录音，已载入</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>录音</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>已导出</translation>
    </message>
</context>
<context>
    <name>FilePanel</name>
    <message>
        <source>Reading “%1”…</source>
        <translation>正在读取“%1”…</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>上级文件夹</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>Looking for “%1”…</source>
        <translation>正在查找“%1”…</translation>
    </message>
</context>
<context>
    <name>FolderBrowser</name>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
</context>
<context>
    <name>FolderButton</name>
    <message>
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Choose</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>“%1” is no folder.</source>
        <translation>“%1”不是文件夹。</translation>
    </message>
</context>
<context>
    <name>GainTickTitle</name>
    <message>
        <source>Scale</source>
        <translation>刻度</translation>
    </message>
</context>
<context>
    <name>HelpVC</name>
    <message>
        <source>Waveform</source>
        <translation>波形</translation>
    </message>
    <message>
        <source>A click or a drag moves the play head</source>
        <translation>单击或拖动可移动播放头</translation>
    </message>
    <message>
        <source>Wheel there</source>
        <translation>在其上滚动滚轮</translation>
    </message>
    <message>
        <source>Zooms; with Shift it scrolls</source>
        <translation>缩放；按住 Shift 则滚动</translation>
    </message>
    <message>
        <source>Double click there</source>
        <translation>在其上双击</translation>
    </message>
    <message>
        <source>Shows the whole take</source>
        <translation>显示整条录音</translation>
    </message>
    <message>
        <source>Ruler over it</source>
        <translation>上方标尺</translation>
    </message>
    <message>
        <source>A drag loops; A and B can be moved there</source>
        <translation>拖动可循环；A 和 B 可在此移动</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>A double click on the knob resets it</source>
        <translation>双击旋钮可复位</translation>
    </message>
    <message>
        <source>Width and gain</source>
        <translation>宽度和增益</translation>
    </message>
    <message>
        <source>A click on the value lets you type one</source>
        <translation>单击数值即可键入</translation>
    </message>
    <message>
        <source>Recorder in the dial</source>
        <translation>转盘中的录音机</translation>
    </message>
    <message>
        <source>A double click turns to %1°</source>
        <translation>双击可转到 %1°</translation>
    </message>
    <message>
        <source>Peaks</source>
        <translation>峰值</translation>
    </message>
    <message>
        <source>A click on a figure or lamp clears them</source>
        <translation>单击数字或指示灯可清除</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Clears the loop, or gives up what takes long</source>
        <translation>清除循环，或放弃耗时的操作</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>指针</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Keys and pointer</source>
        <translation>键盘和指针</translation>
    </message>
    <message>
        <source>Takes in the list</source>
        <translation>列表中的录音</translation>
    </message>
    <message>
        <source>Shift and Ctrl select several; the second button opens a menu</source>
        <translation>Shift 和 Ctrl 可多选；右键打开菜单</translation>
    </message>
</context>
<context>
    <name>IntroductionVC</name>
    <message>
        <source>What mid-side is</source>
        <translation>什么是 M/S（中间/侧边）</translation>
    </message>
    <message>
        <source>One microphone hears the middle, another the sides. Together they give a stereo image whose width you choose after the recording.</source>
        <translation>一支话筒拾取中间，另一支拾取两侧。两者合成立体声像，其宽度可在录音之后选择。</translation>
    </message>
    <message>
        <source>Open a folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Choose the folder with your takes at the top left. A double click on a take plays it.</source>
        <translation>在左上角选择存放录音的文件夹。双击一条录音即可播放。</translation>
    </message>
    <message>
        <source>Turn the width</source>
        <translation>调节宽度</translation>
    </message>
    <message>
        <source>Drag the dial from MONO to 150° while you listen. Gain makes a take louder or softer.</source>
        <translation>边听边把转盘从单声道拖到 150°。增益可使录音更响或更轻。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Export writes what you hear into a new stereo file. The take itself is never changed.</source>
        <translation>导出会把听到的声音写入新的立体声文件。原录音绝不会被改动。</translation>
    </message>
    <message>
        <source>Plug in the recorder</source>
        <translation>连接录音机</translation>
    </message>
    <message>
        <source>Connected over USB, it shows the room left on its card and lets you set battery type and auto power off.</source>
        <translation>通过 USB 连接后，可显示存储卡剩余空间，并可设置电池类型和自动关机。</translation>
    </message>
    <message>
        <source>Welcome to TARN J4 Mixdeck</source>
        <translation>欢迎使用 TARN J4 Mixdeck</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>不再显示</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>简介</translation>
    </message>
</context>
<context>
    <name>J4GainSlider</name>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
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
        <translation>位置</translation>
    </message>
</context>
<context>
    <name>LevelFeed</name>
    <message>
        <source>Greatest level so far; a click clears it</source>
        <translation>迄今最大电平；单击可清除</translation>
    </message>
    <message>
        <source>recorder&apos;s rule</source>
        <translation>录音机规则</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>峰值保持</translation>
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
        <translation>循环：在播放头处标记 A</translation>
    </message>
    <message>
        <source>Loop: mark B at the play head</source>
        <translation>循环：在播放头处标记 B</translation>
    </message>
    <message>
        <source>Loop: clear A and B</source>
        <translation>循环：清除 A 和 B</translation>
    </message>
</context>
<context>
    <name>LoudnessField</name>
    <message>
        <source>Loudness to aim at</source>
        <translation>目标响度</translation>
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
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>NodeviceVC</name>
    <message>
        <source>The recorder</source>
        <translation>录音机</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Connect the recorder over USB and switch it on. Its settings can be changed here as soon as it is found.</source>
        <translation>请用 USB 连接录音机并打开电源。一经找到，即可在此更改其设置。</translation>
    </message>
    <message>
        <source>No recorder is connected</source>
        <translation>未连接录音机</translation>
    </message>
</context>
<context>
    <name>PathViewer</name>
    <message>
        <source>Current folder</source>
        <translation>当前文件夹</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>A–B</source>
        <translation>A–B</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>循环</translation>
    </message>
    <message>
        <source>M</source>
        <comment>Mid</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>Solo Mid</source>
        <translation>独听中间</translation>
    </message>
    <message>
        <source>S</source>
        <comment>Side</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Solo Side</source>
        <translation>独听侧边</translation>
    </message>
    <message>
        <source>Place in the take</source>
        <translation>录音中的位置</translation>
    </message>
    <message>
        <source>Length of the take</source>
        <translation>录音时长</translation>
    </message>
    <message>
        <source>Position: drag or scroll</source>
        <translation>位置：拖动或滚动</translation>
    </message>
    <message>
        <source>Volume of what you hear; an export keeps its level</source>
        <translation>监听音量；导出的电平不变</translation>
    </message>
</context>
<context>
    <name>QueueModel</name>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>正在取消</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>已导出</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>Progress of all</source>
        <translation>总进度</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancel the selected exports</source>
        <translation>取消所选导出</translation>
    </message>
    <message>
        <source>%1 of %2 exported</source>
        <translation>已导出 %1 / %2</translation>
    </message>
    <message>
        <source>%1, %2 failed</source>
        <translation>%1，%2 个失败</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>全部取消</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Reason</name>
    <message>
        <source>Not a WAVE file: %1</source>
        <translation>不是 WAVE 文件：%1</translation>
    </message>
    <message>
        <source>shorter than 48 bytes</source>
        <translation>短于 48 字节</translation>
    </message>
    <message>
        <source>not a RIFF file</source>
        <translation>不是 RIFF 文件</translation>
    </message>
    <message>
        <source>a RIFF file, but not WAVE</source>
        <translation>是 RIFF 文件，但不是 WAVE</translation>
    </message>
    <message>
        <source>an RF64 file without its sizes (ds64 chunk)</source>
        <translation>缺少大小信息（ds64 块）的 RF64 文件</translation>
    </message>
    <message>
        <source>more chunks than a recording has</source>
        <translation>块的数量超过录音应有的数量</translation>
    </message>
    <message>
        <source>no format chunk</source>
        <translation>没有格式块</translation>
    </message>
    <message>
        <source>no data chunk</source>
        <translation>没有数据块</translation>
    </message>
    <message>
        <source>No broadcast extension (bext chunk)</source>
        <translation>没有广播扩展（bext 块）</translation>
    </message>
    <message>
        <source>The broadcast extension has %1 bytes, fewer than %2</source>
        <translation>广播扩展只有 %1 字节，少于 %2</translation>
    </message>
    <message>
        <source>Not a recording of the %1: its originator is &quot;%2&quot;</source>
        <translation>不是 %1 的录音：其来源为“%2”</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>The file became shorter</source>
        <translation>文件变短了</translation>
    </message>
    <message>
        <source>The file has been deleted</source>
        <translation>文件已被删除</translation>
    </message>
    <message>
        <source>No recording is open</source>
        <translation>没有打开的录音</translation>
    </message>
    <message>
        <source>The target is the source itself</source>
        <translation>目标就是源文件本身</translation>
    </message>
    <message>
        <source>The export would take %1 bytes; a WAVE file ends at 4 GiB</source>
        <translation>导出需要 %1 字节；WAVE 文件上限为 4 GiB</translation>
    </message>
    <message>
        <source>The source cannot be read: %1</source>
        <translation>无法读取源文件：%1</translation>
    </message>
    <message>
        <source>The recording has no loudness at this width: it is silent or shorter than 0.4 s</source>
        <translation>该录音在此宽度下没有响度：静音或短于 0.4 秒</translation>
    </message>
    <message>
        <source>No file can be read</source>
        <translation>无法读取任何文件</translation>
    </message>
    <message>
        <source>Samples of %1 bits in format %2 cannot be played</source>
        <translation>无法播放格式 %2 的 %1 位采样</translation>
    </message>
    <message>
        <source>There are no channels</source>
        <translation>没有声道</translation>
    </message>
    <message>
        <source>There is no sample rate</source>
        <translation>没有采样率</translation>
    </message>
    <message>
        <source>No sound server was found (%1).</source>
        <translation>未找到音频服务器（%1）。</translation>
    </message>
    <message>
        <source>The sound server has gone (%1).</source>
        <translation>音频服务器已断开（%1）。</translation>
    </message>
    <message>
        <source>The sound server did not answer.</source>
        <translation>音频服务器未作响应。</translation>
    </message>
    <message>
        <source>The sound output was not there (%1).</source>
        <translation>未找到音频输出（%1）。</translation>
    </message>
    <message>
        <source>The sound output has stopped.</source>
        <translation>音频输出已停止。</translation>
    </message>
    <message>
        <source>The sound output could not be started (%1).</source>
        <translation>无法启动音频输出（%1）。</translation>
    </message>
    <message>
        <source>The sound output does not take %1 channels at %2 Hz.</source>
        <translation>音频输出不支持 %2 Hz 的 %1 声道。</translation>
    </message>
    <message>
        <source>no thread can be had</source>
        <translation>无法获得线程</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>没有那个文件或文件夹</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不够</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>不允许的操作</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入/输出错误</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>设备上没有剩余空间</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>超出磁盘配额</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>只读文件系统</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>文件已存在</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>文件过大</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>文件名过长</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>是一个文件夹</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>不是文件夹</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>无效的参数</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>没有那个设备</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>过期的文件句柄</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>打开的文件过多</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>连接被拒绝</translation>
    </message>
    <message>
        <source>Connection terminated</source>
        <translation>连接已终止</translation>
    </message>
    <message>
        <source>Sample bytes have been written already</source>
        <translation>采样数据已经写入</translation>
    </message>
    <message>
        <source>The file was dropped before it was saved</source>
        <translation>文件在保存前已被丢弃</translation>
    </message>
    <message>
        <source>The file has been saved already</source>
        <translation>文件已经保存</translation>
    </message>
    <message>
        <source>The file was written for another place</source>
        <translation>文件是为另一位置写入的</translation>
    </message>
    <message>
        <source>There are too many channels, or too many frames a second.</source>
        <translation>声道过多，或每秒采样过多。</translation>
    </message>
    <message>
        <source>There is no ALSA sequencer here (%1).</source>
        <translation>此处没有 ALSA 音序器（%1）。</translation>
    </message>
    <message>
        <source>No permission to use the ALSA sequencer (%1).</source>
        <translation>没有使用 ALSA 音序器的权限（%1）。</translation>
    </message>
    <message>
        <source>The ALSA sequencer cannot be used (%1: %2).</source>
        <translation>无法使用 ALSA 音序器（%1：%2）。</translation>
    </message>
    <message>
        <source>The ALSA sequencer has gone (%1).</source>
        <translation>ALSA 音序器已断开（%1）。</translation>
    </message>
    <message>
        <source>This kernel or alsa-lib has no Universal MIDI Packets, which were asked for.</source>
        <translation>此内核或 alsa-lib 没有所要求的 Universal MIDI Packets。</translation>
    </message>
    <message>
        <source>Markers and descriptions of the recording cannot be read</source>
        <translation>无法读取录音的标记和说明</translation>
    </message>
    <message>
        <source>No audio: the data chunk states %1 bytes, the file holds %2 after it</source>
        <translation>没有音频：数据块声明 %1 字节，其后文件有 %2 字节</translation>
    </message>
    <message>
        <source>Cut short: the data chunk states %1 bytes, the file holds %2</source>
        <translation>被截断：数据块声明 %1 字节，文件只有 %2 字节</translation>
    </message>
    <message>
        <source>%1 channels of %2-bit samples with format tag %3 do not decode to useful sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)</source>
        <translation>%1 声道、%2 位、格式 %3 的采样无法解码为可用的声音；录音机以 2 声道、24 位整数或 32 位浮点（格式 3）录制</translation>
    </message>
    <message>
        <source>The take cannot be read: %1</source>
        <translation>无法读取录音：%1</translation>
    </message>
    <message>
        <source>The card cannot be read: %1</source>
        <translation>无法读取存储卡：%1</translation>
    </message>
    <message>
        <source>The card is no folder</source>
        <translation>存储卡不是文件夹</translation>
    </message>
    <message>
        <source>The card is never written to, but holds the folder</source>
        <translation>从不写入存储卡，但该文件夹就在卡上</translation>
    </message>
    <message>
        <source>The card holds no takes</source>
        <translation>存储卡中没有录音</translation>
    </message>
    <message>
        <source>The card is gone</source>
        <translation>存储卡已移除</translation>
    </message>
    <message>
        <source>The folder cannot be made: %1</source>
        <translation>无法创建文件夹：%1</translation>
    </message>
    <message>
        <source>The folder cannot be written to: %1</source>
        <translation>无法写入文件夹：%1</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1</source>
        <translation>无法读取文件夹：%1</translation>
    </message>
    <message>
        <source>Another copy is at work there</source>
        <translation>另一个复制正在那里进行</translation>
    </message>
    <message>
        <source>A copy is at work there</source>
        <translation>那里正在进行复制</translation>
    </message>
    <message>
        <source>The folder is being verified</source>
        <translation>正在校验该文件夹</translation>
    </message>
    <message>
        <source>The manifest cannot be read: %1</source>
        <translation>无法读取清单：%1</translation>
    </message>
    <message>
        <source>The manifest cannot be written: %1</source>
        <translation>无法写入清单：%1</translation>
    </message>
    <message>
        <source>It has no manifest (%1)</source>
        <translation>没有清单（%1）</translation>
    </message>
    <message>
        <source>The takes and their manifest need %1 bytes, and %2 are free</source>
        <translation>录音及其清单需要 %1 字节，可用 %2 字节</translation>
    </message>
    <message>
        <source>Its name is not UTF-8, and cannot stand in a manifest</source>
        <translation>其名称不是 UTF-8，无法写入清单</translation>
    </message>
    <message>
        <source>What is there is no file</source>
        <translation>那里的不是文件</translation>
    </message>
    <message>
        <source>The take has %1 bytes, the file that is there %2</source>
        <translation>录音有 %1 字节，那里的文件有 %2 字节</translation>
    </message>
    <message>
        <source>The file that is there has another content</source>
        <translation>那里的文件内容不同</translation>
    </message>
    <message>
        <source>It was changed while it was read</source>
        <translation>读取时被更改</translation>
    </message>
    <message>
        <source>What was written does not read back as it was</source>
        <translation>写入的内容读回时不一致</translation>
    </message>
    <message>
        <source>the manifest has no hash of it that is known here</source>
        <translation>清单中没有此处可识别的校验值</translation>
    </message>
    <message>
        <source>%1 bytes, not %2</source>
        <translation>%1 字节，而非 %2</translation>
    </message>
    <message>
        <source>another content</source>
        <translation>内容不同</translation>
    </message>
    <message>
        <source>it cannot be listed</source>
        <translation>无法列出其内容</translation>
    </message>
    <message>
        <source>it is not well-formed</source>
        <translation>格式不正确</translation>
    </message>
    <message>
        <source>it is no such list</source>
        <translation>不是此类清单</translation>
    </message>
    <message>
        <source>a path in it leads out of the folder</source>
        <translation>其中有路径指向文件夹之外</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>it is not in the chain</source>
        <translation>不在链中</translation>
    </message>
    <message>
        <source>it was changed after it was written</source>
        <translation>写入后被更改</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>the data chunk states %1 bytes, the file holds %2</source>
        <translation>数据块声明 %1 字节，文件有 %2 字节</translation>
    </message>
    <message>
        <source>1 byte of half a frame at the end</source>
        <translation>末尾有半帧，共 1 字节</translation>
    </message>
    <message>
        <source>%1 bytes of half a frame at the end</source>
        <translation>末尾有半帧，共 %1 字节</translation>
    </message>
    <message>
        <source>%1 zero bytes at the end, where no sound was written</source>
        <translation>末尾有 %1 个零字节，那里没有写入声音</translation>
    </message>
    <message>
        <source>the file states %1 bytes, and has %2</source>
        <translation>文件声明 %1 字节，实际有 %2 字节</translation>
    </message>
    <message>
        <source>%1 zero bytes after the end of the take</source>
        <translation>录音结束之后有 %1 个零字节</translation>
    </message>
    <message>
        <source>it does not begin as a WAVE file</source>
        <translation>开头不是 WAVE 文件</translation>
    </message>
    <message>
        <source>its format has no frames</source>
        <translation>其格式没有帧</translation>
    </message>
    <message>
        <source>there is no format chunk before the sound</source>
        <translation>声音之前没有格式块</translation>
    </message>
    <message>
        <source>no sound is found in it (data chunk)</source>
        <translation>其中找不到声音（数据块）</translation>
    </message>
    <message>
        <source>no sound was written to it</source>
        <translation>其中没有写入声音</translation>
    </message>
</context>
<context>
    <name>RecorderSettings</name>
    <message>
        <source>Alkaline</source>
        <translation>碱性</translation>
    </message>
    <message>
        <source>Ni-MH</source>
        <translation>镍氢</translation>
    </message>
    <message>
        <source>Lithium</source>
        <translation>锂</translation>
    </message>
    <message>
        <source>Li-ion</source>
        <translation>锂离子</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 分钟</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 分钟</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 小时</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关</translation>
    </message>
</context>
<context>
    <name>RepairOffer</name>
    <message>
        <source>The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The take itself stays as it is.</source>
        <translation>%1 的录制中断了。可将 %2 秒声音恢复到旁边的 %3。原录音保持不变。</translation>
    </message>
    <message>
        <source>Salvage</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>暂不</translation>
    </message>
    <message>
        <source>%1 is being salvaged…</source>
        <translation>正在恢复 %1…</translation>
    </message>
    <message>
        <source>%1 was not saved: %2.</source>
        <translation>%1 未能保存：%2。</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>保存失败。</translation>
    </message>
    <message>
        <source>What was found:</source>
        <translation>发现的问题：</translation>
    </message>
    <message>
        <source>%1 is salvaged into %2.</source>
        <translation>%1 已恢复到 %2。</translation>
    </message>
</context>
<context>
    <name>RowMenu</name>
    <message>
        <source>What is selected</source>
        <translation>所选内容</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Export %1…</source>
        <translation>导出 %1(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>导出(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Show in file manager</source>
        <translation>在文件管理器中显示(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Copy path</source>
        <translation>复制路径(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Copy paths</source>
        <translation>复制路径(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>信息(&amp;I)</translation>
    </message>
</context>
<context>
    <name>RowReader</name>
    <message>
        <source>width %1°</source>
        <translation>宽度 %1°</translation>
    </message>
    <message>
        <source>gain %1 dB</source>
        <translation>增益 %1 dB</translation>
    </message>
    <message>
        <source>Exported as %1: %2</source>
        <translation>已导出为 %1：%2</translation>
    </message>
</context>
<context>
    <name>SavePanel</name>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Folders and recordings</source>
        <translation>文件夹和录音</translation>
    </message>
    <message>
        <source>Saving checkboard...</source>
        <translation>保存导出</translation>
    </message>
    <message>
        <source>Please select a path where to save decoded wav.</source>
        <translation>请选择解码后 WAV 文件的保存位置。</translation>
    </message>
    <message>
        <source>Create new folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>名称过长。</translation>
    </message>
    <message>
        <source>“%1” exists. Replace it?</source>
        <translation>“%1”已存在。要替换吗？</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>新文件夹的名称：</translation>
    </message>
    <message>
        <source>Making “%1”…</source>
        <translation>正在创建“%1”…</translation>
    </message>
    <message>
        <source>“%1” cannot be made: %2</source>
        <translation>无法创建“%1”：%2</translation>
    </message>
</context>
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>%n 条录音</numerusform>
        </translation>
    </message>
    <message>
        <source>Export %1…</source>
        <translation>导出 %1…</translation>
    </message>
</context>
<context>
    <name>Slider</name>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>SoundPane</name>
    <message>
        <source>A double click turns to %1°, the plain sum and difference</source>
        <translation>双击可转到 %1°，即单纯的和与差</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>静音</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>取消静音</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Type the stereo width</source>
        <translation>键入立体声宽度</translation>
    </message>
    <message>
        <source>Type the gain</source>
        <translation>键入增益</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stereo width</source>
        <translation>立体声宽度</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>声像</translation>
    </message>
    <message>
        <source>Gain scale</source>
        <translation>增益刻度</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>Level scale</source>
        <translation>电平刻度</translation>
    </message>
    <message>
        <source>Level left</source>
        <translation>左电平</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>左</translation>
    </message>
    <message>
        <source>Level right</source>
        <translation>右电平</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>右</translation>
    </message>
    <message>
        <source>Peak left</source>
        <translation>左峰值</translation>
    </message>
    <message>
        <source>Clip left</source>
        <translation>左削波</translation>
    </message>
    <message>
        <source>Peak right</source>
        <translation>右峰值</translation>
    </message>
    <message>
        <source>Clip right</source>
        <translation>右削波</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>电平</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>峰值保持</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>录音机</translation>
    </message>
    <message>
        <source>Gain: drag or scroll; a double click sets 0 dB</source>
        <translation>增益：拖动或滚动；双击设为 0 dB</translation>
    </message>
    <message>
        <source>Level of the left channel, before the volume</source>
        <translation>左声道电平（音量调节之前）</translation>
    </message>
    <message>
        <source>Level of the right channel, before the volume</source>
        <translation>右声道电平（音量调节之前）</translation>
    </message>
</context>
<context>
    <name>StayAwake</name>
    <message>
        <source>Recordings are being exported or copied</source>
        <translation>正在导出或复制录音</translation>
    </message>
</context>
<context>
    <name>StereoScope</name>
    <message>
        <source>Stereo scope</source>
        <translation>矢量示波器</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>左</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>右</translation>
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
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>%1 channels, %2 Hz, %3-bit %4</source>
        <translation>%1 声道，%2 Hz，%3 位 %4</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Of the recorder</source>
        <translation>来自录音机</translation>
    </message>
    <message>
        <source>Raw M/S</source>
        <translation>原始 M/S</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>帧</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>%1 bytes at %2</source>
        <translation>偏移 %2，%1 字节</translation>
    </message>
    <message>
        <source>, and %1 more of it</source>
        <translation>，以及另外 %1</translation>
    </message>
    <message>
        <source>integer PCM</source>
        <translation>整数 PCM</translation>
    </message>
    <message>
        <source>IEEE float</source>
        <translation>IEEE 浮点</translation>
    </message>
    <message>
        <source>extensible</source>
        <translation>扩展格式</translation>
    </message>
    <message>
        <source>other</source>
        <translation>其他</translation>
    </message>
</context>
<context>
    <name>TakeInformation</name>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>正在读取…</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>No thread can be had to read it.</source>
        <translation>无法获得读取线程。</translation>
    </message>
    <message>
        <source>Chunks</source>
        <translation>块</translation>
    </message>
    <message>
        <source>Broadcast extension</source>
        <translation>广播扩展</translation>
    </message>
    <message>
        <source>Figures at %1° and %2 dB</source>
        <translation>%1° 和 %2 dB 时的数值</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>正在测量…</translation>
    </message>
    <message>
        <source>Integrated loudness</source>
        <translation>综合响度</translation>
    </message>
    <message>
        <source>Loudness range</source>
        <translation>响度范围</translation>
    </message>
    <message>
        <source>Momentary, at most</source>
        <translation>瞬时最大</translation>
    </message>
    <message>
        <source>Short-term, at most</source>
        <translation>短期最大</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>真峰值</translation>
    </message>
    <message>
        <source>Sample peak</source>
        <translation>采样峰值</translation>
    </message>
    <message>
        <source>Correlation</source>
        <translation>相关度</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>平衡</translation>
    </message>
</context>
<context>
    <name>TakeMessages</name>
    <message>
        <source>%1 is being opened… (Esc gives up)</source>
        <translation>正在打开 %1…（按 Esc 放弃）</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>File not supported.</source>
        <translation>不支持的文件。</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Open it again once it is back.</source>
        <translation>无法读取 %1：%2。待其恢复后请重新打开。</translation>
    </message>
    <message>
        <source>Paused: %1 Press Play to try again.</source>
        <translation>已暂停：%1 按播放重试。</translation>
    </message>
</context>
<context>
    <name>TakeRecall</name>
    <message>
        <source>What was remembered of takes was damaged. It was set aside as “%1”, and a new one begun.</source>
        <translation>所记住的录音数据已损坏。已另存为“%1”，并重新开始。</translation>
    </message>
    <message>
        <source>What is remembered of takes is of a newer version of the program. It is left alone, and nothing is remembered.</source>
        <translation>所记住的录音数据来自更新版本的程序。数据保持原样，不再记住任何内容。</translation>
    </message>
    <message>
        <source>What takes were heard with cannot be remembered.</source>
        <translation>无法记住录音的监听设置。</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>About %1 s left</source>
        <translation>大约还剩 %1 秒</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>大约还剩 %1 分钟</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>%1 of %2 takes</source>
        <translation>%2 条录音中的 %1 条</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/秒</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>正在取消</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1：%2。</translation>
    </message>
    <message>
        <source>%1: %2. %3</source>
        <translation>%1：%2。%3</translation>
    </message>
</context>
<context>
    <name>TransferWork</name>
    <message>
        <source>Not everything could be listed.</source>
        <translation>未能列出全部内容。</translation>
    </message>
    <message>
        <source>The manifest itself is not right.</source>
        <translation>清单本身不正确。</translation>
    </message>
    <message>
        <source>%1 could not be listed: %2</source>
        <translation>无法列出 %1：%2</translation>
    </message>
    <message>
        <source>The manifest is not right: %1</source>
        <translation>清单不正确：%1</translation>
    </message>
    <message>
        <source>%1: copied and verified</source>
        <translation>%1：已复制并校验</translation>
    </message>
    <message>
        <source>%1: there already</source>
        <translation>%1：已存在</translation>
    </message>
    <message>
        <source>%1 differs: %2</source>
        <translation>%1 不一致：%2</translation>
    </message>
    <message>
        <source>%1 was not copied: %2</source>
        <translation>未复制 %1：%2</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n 条录音已就位并校验</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 takes are there and verified</source>
        <translation>%2 条录音中有 %1 条已就位并校验</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>What was copied stays; the next copy goes on from there.</source>
        <translation>已复制的会保留；下次复制从那里继续。</translation>
    </message>
    <message>
        <source>%1 has changed: %2</source>
        <translation>%1 已改变：%2</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>%1 is now %2</source>
        <translation>%1 现为 %2</translation>
    </message>
    <message>
        <source>%1 is new</source>
        <translation>%1 是新增的</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n 个文件正确</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 right, %2 not</source>
        <translation>%1 个正确，%2 个不正确</translation>
    </message>
</context>
<context>
    <name>TransportPane</name>
    <message>
        <source>Raw M/S</source>
        <translation>原始 M/S</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>立体声</translation>
    </message>
    <message>
        <source>%1-bit float</source>
        <translation>%1 位浮点</translation>
    </message>
    <message>
        <source>%1-bit</source>
        <translation>%1 位</translation>
    </message>
    <message>
        <source>%1 kHz</source>
        <translation>%1 kHz</translation>
    </message>
    <message>
        <source>Double-click a recording to play it</source>
        <translation>双击录音即可播放</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
</context>
<context>
    <name>ValueField</name>
    <message>
        <source>Click to type a value</source>
        <translation>单击以键入数值</translation>
    </message>
</context>
<context>
    <name>WaveformViewer</name>
    <message>
        <source>Waveform</source>
        <translation>波形</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>左</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>右</translation>
    </message>
</context>
<context>
    <name>WindowCommands</name>
    <message>
        <source>No browser could be opened. Help is at %1</source>
        <translation>无法打开浏览器。帮助位于 %1</translation>
    </message>
    <message>
        <source>Solo is for listening: Left and Right are exported.</source>
        <translation>独听仅用于监听：导出的是左右声道。</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Open folder…</source>
        <translation>打开文件夹(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>导出(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Clear peaks</source>
        <translation>清除峰值(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Meters by the recorder&apos;s rule</source>
        <translation>按录音机规则显示电平表(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Keys and pointer</source>
        <translation>键盘和指针(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Introduction</source>
        <translation>简介(&amp;I)</translation>
    </message>
    <message>
        <source>Online &amp;help</source>
        <translation>在线帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>播放(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>播放或暂停(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Back 1 s</source>
        <translation>后退 1 秒(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Forward 1 s</source>
        <translation>前进 1 秒(&amp;F)</translation>
    </message>
    <message>
        <source>Back 10 s</source>
        <translation>后退 10 秒</translation>
    </message>
    <message>
        <source>Forward 10 s</source>
        <translation>前进 10 秒</translation>
    </message>
    <message>
        <source>To the be&amp;ginning</source>
        <translation>到开头(&amp;G)</translation>
    </message>
    <message>
        <source>To the &amp;end</source>
        <translation>到结尾(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Louder by 1 dB</source>
        <translation>增大 1 dB(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Softer by 1 dB</source>
        <translation>减小 1 dB(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Wider by 5°</source>
        <translation>加宽 5°(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Narrower by 5°</source>
        <translation>收窄 5°(&amp;N)</translation>
    </message>
    <message>
        <source>L&amp;oop: A, B, clear</source>
        <translation>循环：A、B、清除(&amp;O)</translation>
    </message>
    <message>
        <source>Solo &amp;Mid</source>
        <translation>独听中间(&amp;M)</translation>
    </message>
    <message>
        <source>Solo S&amp;ide</source>
        <translation>独听侧边(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Remember width, gain and loop</source>
        <translation>记住宽度、增益和循环(&amp;R)</translation>
    </message>
    <message>
        <source>Order of the &amp;list</source>
        <translation>列表顺序(&amp;L)</translation>
    </message>
    <message>
        <source>By &amp;name</source>
        <translation>按名称(&amp;N)</translation>
    </message>
    <message>
        <source>By &amp;recording time</source>
        <translation>按录制时间(&amp;R)</translation>
    </message>
    <message>
        <source>By &amp;duration</source>
        <translation>按时长(&amp;D)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Copy car&amp;d…</source>
        <translation>复制存储卡(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Verify folder…</source>
        <translation>校验文件夹(&amp;V)…</translation>
    </message>
</context>
</TS>
