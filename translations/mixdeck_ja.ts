<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AboutVC</name>
    <message>
        <source>Logo</source>
        <translation>ロゴ</translation>
    </message>
    <message>
        <source>Desktop companion of the TARN J4 recorder</source>
        <translation>レコーダー TARN J4 のデスクトップコンパニオン</translation>
    </message>
    <message>
        <source>Copyright 2026 The Mixdeck developers
MIT license</source>
        <translation>Copyright 2026 The Mixdeck developers
MIT ライセンス</translation>
    </message>
    <message>
        <source>About</source>
        <translation>このアプリについて</translation>
    </message>
    <message>
        <source>Copy details</source>
        <translation>詳細をコピー</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
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
        <translation>ステレオ幅</translation>
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
        <translation>レコーダーが接続されました。</translation>
    </message>
    <message>
        <source>The recorder is no longer connected.</source>
        <translation>レコーダーの接続が切れました。</translation>
    </message>
    <message>
        <source>%1 is exported.</source>
        <translation>%1 を書き出しました。</translation>
    </message>
    <message>
        <source>%1 of %2 takes are exported.</source>
        <translation>テイク %2 件中 %1 件を書き出しました。</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are exported.</source>
        <translation>
            <numerusform>%n 件のテイクを書き出しました。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchChoices</name>
    <message>
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 ビットリニア</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 ビットフロート</translation>
    </message>
    <message>
        <source>Normalize each to full scale</source>
        <translation>それぞれフルスケールにノーマライズ</translation>
    </message>
    <message>
        <source>Each to a loudness</source>
        <translation>それぞれ目標ラウドネスに合わせる</translation>
    </message>
    <message>
        <source>Beside each take</source>
        <translation>各テイクの隣</translation>
    </message>
    <message>
        <source>Into a folder</source>
        <translation>フォルダーへ</translation>
    </message>
    <message>
        <source>Folder for the exports</source>
        <translation>書き出し先フォルダー</translation>
    </message>
    <message>
        <source>Where an export exists</source>
        <translation>書き出しが既にある場合</translation>
    </message>
    <message>
        <source>Skip the take</source>
        <translation>テイクをスキップ</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>置き換える</translation>
    </message>
    <message>
        <source>Number the new one</source>
        <translation>新しい方に番号を付ける</translation>
    </message>
    <message>
        <source>Each at its remembered width and gain</source>
        <translation>それぞれ記憶した幅とゲインで</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>録音時刻とマーカーを残す</translation>
    </message>
</context>
<context>
    <name>BatchDesk</name>
    <message>
        <source>One take was not exported.</source>
        <translation>1 件のテイクを書き出せませんでした。</translation>
    </message>
    <message numerus="yes">
        <source>%n takes were not exported.</source>
        <translation>
            <numerusform>%n 件のテイクを書き出せませんでした。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>%1 exists</source>
        <translation>%1 は既にあります</translation>
    </message>
    <message>
        <source>%1 is itself among the takes</source>
        <translation>%1 自体がテイクに含まれています</translation>
    </message>
    <message>
        <source>%1 is about to be written</source>
        <translation>%1 はこれから書き込まれます</translation>
    </message>
    <message>
        <source>%1 is to be the export of %2</source>
        <translation>%1 は %2 の書き出し先です</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message numerus="yes">
        <source>Export %n takes</source>
        <translation>
            <numerusform>%n 件のテイクを書き出し</numerusform>
        </translation>
    </message>
    <message>
        <source>Takes that will not be exported</source>
        <translation>書き出されないテイク</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>ステレオ幅</translation>
    </message>
    <message>
        <source>%1° for all</source>
        <translation>すべて %1°</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>ゲイン</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>容量</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>%1 を書き出し</translation>
    </message>
    <message>
        <source>To %1 LUFS</source>
        <translation>%1 LUFS に</translation>
    </message>
    <message>
        <source>%1, of %2 that are free</source>
        <translation>%1（空き %2）</translation>
    </message>
    <message>
        <source>The takes cannot be looked at: %1.</source>
        <translation>テイクを調べられません：%1。</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>ラウドネスは −70 から 0 の数値です。</translation>
    </message>
    <message>
        <source>There is too little room: the last of them will not be written</source>
        <translation>容量が足りません：最後のものは書き込まれません</translation>
    </message>
    <message>
        <source>Samples of some of them export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>一部のサンプルはノイズとして書き出されます。レコーダーは 24 ビットか 32 ビットフロートで記録します</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>4 GiB 超：RF64 として書き出します。読めないプログラムもあります</translation>
    </message>
    <message>
        <source>One will not be exported:</source>
        <translation>1 件は書き出されません：</translation>
    </message>
    <message numerus="yes">
        <source>%n will not be exported:</source>
        <translation>
            <numerusform>%n 件は書き出されません：</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>As remembered, else %1</source>
        <translation>記憶した値、なければ %1</translation>
    </message>
</context>
<context>
    <name>BrowserPane</name>
    <message>
        <source>Looking for “%1”… (Esc gives up)</source>
        <translation>「%1」を探しています…（Esc で中止）</translation>
    </message>
    <message>
        <source>Open folder, now %1</source>
        <translation>フォルダーを開く、現在は %1</translation>
    </message>
</context>
<context>
    <name>BrowserView</name>
    <message>
        <source>Go up</source>
        <translation>上の階層へ</translation>
    </message>
    <message>
        <source>Current folder</source>
        <translation>現在のフォルダー</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>フォルダーを開く</translation>
    </message>
</context>
<context>
    <name>CardDesk</name>
    <message>
        <source>The card “%1” holds recordings. “Copy card…” in the menu brings them home.</source>
        <translation>カード「%1」に録音があります。メニューの「カードをコピー…」で取り込めます。</translation>
    </message>
    <message>
        <source>Copy card</source>
        <translation>カードをコピー</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>テイク</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>カード</translation>
    </message>
    <message>
        <source>Into</source>
        <translation>コピー先</translation>
    </message>
    <message>
        <source>Verify folder</source>
        <translation>フォルダーを検証</translation>
    </message>
    <message>
        <source>Verify</source>
        <translation>検証</translation>
    </message>
    <message>
        <source>Files that are not right</source>
        <translation>問題のあるファイル</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
</context>
<context>
    <name>ClipLamp</name>
    <message>
        <source>over full scale</source>
        <translation>フルスケール超過</translation>
    </message>
    <message>
        <source>not over full scale</source>
        <translation>フルスケール以内</translation>
    </message>
</context>
<context>
    <name>CorrelationBar</name>
    <message>
        <source>Correlation</source>
        <translation>相関</translation>
    </message>
</context>
<context>
    <name>CostView</name>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>ラウドネス</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>トゥルーピーク</translation>
    </message>
</context>
<context>
    <name>DevicePane</name>
    <message>
        <source>Connected</source>
        <translation>接続済み</translation>
    </message>
    <message>
        <source>Ver. %1</source>
        <translation>Ver. %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>未接続</translation>
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
        <translation>%1 / %2 使用</translation>
    </message>
</context>
<context>
    <name>DeviceView</name>
    <message>
        <source>Simulated recorder</source>
        <translation>シミュレートされたレコーダー</translation>
    </message>
    <message>
        <source>No recorder can be found here.</source>
        <translation>レコーダーを検出できません。</translation>
    </message>
    <message>
        <source>Card used</source>
        <translation>カードの使用量</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>残り</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>電池</translation>
    </message>
    <message>
        <source>Auto power off</source>
        <translation>自動電源オフ</translation>
    </message>
    <message>
        <source>%1, no recorder connected</source>
        <translation>%1、レコーダー未接続</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>レコーダー</translation>
    </message>
</context>
<context>
    <name>EndQuestion</name>
    <message>
        <source>Takes are still being copied. What is copied stays; the next copy goes on from there.</source>
        <translation>テイクをまだコピーしています。コピーした分は残り、次のコピーはそこから続きます。</translation>
    </message>
    <message>
        <source>Keep copying</source>
        <translation>コピーを続ける</translation>
    </message>
    <message>
        <source>Stop and quit</source>
        <translation>中止して終了</translation>
    </message>
    <message>
        <source>Keep working</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Stop all and quit</source>
        <translation>すべて中止して終了</translation>
    </message>
    <message>
        <source>An export is still running. Ending now cancels it.</source>
        <translation>書き出し中です。今終了するとキャンセルされます。</translation>
    </message>
    <message>
        <source>Keep exporting</source>
        <translation>書き出しを続ける</translation>
    </message>
    <message>
        <source>Cancel export and quit</source>
        <translation>書き出しを中止して終了</translation>
    </message>
    <message numerus="yes">
        <source>%n exports are still running or waiting. Ending now cancels them.</source>
        <translation>
            <numerusform>%n 件の書き出しが実行中か待機中です。今終了するとキャンセルされます。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel exports and quit</source>
        <translation>書き出しを中止して終了</translation>
    </message>
</context>
<context>
    <name>ExportDesk</name>
    <message>
        <source>%1 was not exported: %2.</source>
        <translation>%1 を書き出せませんでした：%2。</translation>
    </message>
    <message>
        <source>Fail to open.</source>
        <translation>開けませんでした。</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>保存できませんでした。</translation>
    </message>
</context>
<context>
    <name>ExportFacts</name>
    <message>
        <source>Channels as recorded</source>
        <translation>録音時のチャンネルのまま</translation>
    </message>
    <message>
        <source>To full scale</source>
        <translation>フルスケールまで</translation>
    </message>
    <message>
        <source>These %1-bit samples export as noise: the recorder writes 24 bits or 32-bit float</source>
        <translation>この %1 ビットのサンプルはノイズとして書き出されます。レコーダーは 24 ビットか 32 ビットフロートで記録します</translation>
    </message>
    <message>
        <source>Only %1 free in this folder</source>
        <translation>このフォルダーの空きは %1 だけです</translation>
    </message>
    <message>
        <source>Over 4 GiB: written as RF64, which not every program reads</source>
        <translation>4 GiB 超：RF64 として書き出します。読めないプログラムもあります</translation>
    </message>
</context>
<context>
    <name>ExportLevels</name>
    <message>
        <source>Would clip in 24 bit</source>
        <translation>24 ビットではクリップします</translation>
    </message>
    <message numerus="yes">
        <source>Would clip in 24 bit at %n place(s)</source>
        <translation>
            <numerusform>24 ビットでは %n か所でクリップします</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>%1 を書き出し中</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>%1 へ</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
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
        <translation>キャンセルしています</translation>
    </message>
</context>
<context>
    <name>ExportVC</name>
    <message>
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Stereo width</source>
        <translation>ステレオ幅</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>ゲイン</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>ファイルサイズ</translation>
    </message>
    <message>
        <source>Loudness</source>
        <translation>ラウドネス</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>トゥルーピーク</translation>
    </message>
    <message>
        <source>Normalize to full scale</source>
        <translation>フルスケールにノーマライズ</translation>
    </message>
    <message>
        <source>Selection only</source>
        <translation>選択範囲のみ</translation>
    </message>
    <message>
        <source>To a loudness</source>
        <translation>目標ラウドネスに合わせる</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>32-bit Float</source>
        <translation>32 ビットフロート</translation>
    </message>
    <message>
        <source>24-bit Linear</source>
        <translation>24 ビットリニア</translation>
    </message>
    <message>
        <source>A loudness is a number from −70 to 0.</source>
        <translation>ラウドネスは −70 から 0 の数値です。</translation>
    </message>
    <message>
        <source>Silence, and what is shorter than 0.4 s, has no loudness.</source>
        <translation>無音や 0.4 秒未満の音にはラウドネスがありません。</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>The take cannot be read, so its loudness is not known.</source>
        <translation>テイクを読み込めないため、ラウドネスは不明です。</translation>
    </message>
    <message>
        <source>Keep recording time and markers</source>
        <translation>録音時刻とマーカーを残す</translation>
    </message>
</context>
<context>
    <name>FieldView</name>
    <message>
        <source>Momentary</source>
        <translation>モーメンタリー</translation>
    </message>
    <message>
        <source>Momentary loudness</source>
        <translation>モーメンタリーラウドネス</translation>
    </message>
    <message>
        <source>Short-term</source>
        <translation>ショートターム</translation>
    </message>
    <message>
        <source>Short-term loudness</source>
        <translation>ショートタームラウドネス</translation>
    </message>
    <message>
        <source>Whole take</source>
        <translation>テイク全体</translation>
    </message>
    <message>
        <source>Loudness of the take</source>
        <translation>テイクのラウドネス</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>トゥルーピーク</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>音像</translation>
    </message>
    <message>
        <source>Stereo scope: Mid is upright, Side is level</source>
        <translation>ベクトルスコープ：縦がミッド、横がサイドです</translation>
    </message>
    <message>
        <source>Correlation: +1 is mono; below 0, mono loses sound</source>
        <translation>相関：+1 はモノラル、0 未満ではモノラルにすると音が失われます</translation>
    </message>
    <message>
        <source>Loudness of the last 400 ms</source>
        <translation>直前 400 ms のラウドネス</translation>
    </message>
    <message>
        <source>Loudness of the last 3 s</source>
        <translation>直前 3 秒間のラウドネス</translation>
    </message>
    <message>
        <source>Loudness of the whole take at this width and gain</source>
        <translation>この幅とゲインでのテイク全体のラウドネス</translation>
    </message>
    <message>
        <source>Greatest level between the samples, at this width and gain</source>
        <translation>この幅とゲインでの、サンプル間の最大レベル</translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>Files</source>
        <translation>ファイル</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>Recording, loaded</source>
        <translation>録音、読み込み済み</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>録音</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>書き出し済み</translation>
    </message>
</context>
<context>
    <name>FilePanel</name>
    <message>
        <source>Reading “%1”…</source>
        <translation>「%1」を読み込んでいます…</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>親フォルダー</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>「%1」を読み込めません：%2</translation>
    </message>
    <message>
        <source>Looking for “%1”…</source>
        <translation>「%1」を探しています…</translation>
    </message>
</context>
<context>
    <name>FolderBrowser</name>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>「%1」を読み込めません：%2</translation>
    </message>
</context>
<context>
    <name>FolderButton</name>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Choose</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>フォルダーの選択</translation>
    </message>
    <message>
        <source>“%1” is no folder.</source>
        <translation>「%1」はフォルダーではありません。</translation>
    </message>
</context>
<context>
    <name>GainTickTitle</name>
    <message>
        <source>Scale</source>
        <translation>目盛り</translation>
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
        <translation>クリックかドラッグで再生位置を移動</translation>
    </message>
    <message>
        <source>Wheel there</source>
        <translation>その上でホイール</translation>
    </message>
    <message>
        <source>Zooms; with Shift it scrolls</source>
        <translation>拡大・縮小。Shift でスクロール</translation>
    </message>
    <message>
        <source>Double click there</source>
        <translation>その上でダブルクリック</translation>
    </message>
    <message>
        <source>Shows the whole take</source>
        <translation>テイク全体を表示</translation>
    </message>
    <message>
        <source>Ruler over it</source>
        <translation>上のルーラー</translation>
    </message>
    <message>
        <source>A drag loops; A and B can be moved there</source>
        <translation>ドラッグでループ。A と B もそこで動かせます</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>ゲイン</translation>
    </message>
    <message>
        <source>A double click on the knob resets it</source>
        <translation>つまみのダブルクリックでリセット</translation>
    </message>
    <message>
        <source>Width and gain</source>
        <translation>幅とゲイン</translation>
    </message>
    <message>
        <source>A click on the value lets you type one</source>
        <translation>値をクリックすると入力できます</translation>
    </message>
    <message>
        <source>Recorder in the dial</source>
        <translation>ダイヤル内のレコーダー</translation>
    </message>
    <message>
        <source>A double click turns to %1°</source>
        <translation>ダブルクリックで %1° にします</translation>
    </message>
    <message>
        <source>Peaks</source>
        <translation>ピーク</translation>
    </message>
    <message>
        <source>A click on a figure or lamp clears them</source>
        <translation>数値かランプのクリックでクリア</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Clears the loop, or gives up what takes long</source>
        <translation>ループを解除、または時間のかかる処理を中止</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>ポインター</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Keys and pointer</source>
        <translation>キーとポインター</translation>
    </message>
    <message>
        <source>Takes in the list</source>
        <translation>リストのテイク</translation>
    </message>
    <message>
        <source>Shift and Ctrl select several; the second button opens a menu</source>
        <translation>Shift と Ctrl で複数選択。右クリックでメニュー</translation>
    </message>
</context>
<context>
    <name>IntroductionVC</name>
    <message>
        <source>What mid-side is</source>
        <translation>ミッドサイドとは</translation>
    </message>
    <message>
        <source>One microphone hears the middle, another the sides. Together they give a stereo image whose width you choose after the recording.</source>
        <translation>一方のマイクが中央を、もう一方が左右を拾います。合わせるとステレオ音像になり、その幅は録音後に選べます。</translation>
    </message>
    <message>
        <source>Open a folder</source>
        <translation>フォルダーを開く</translation>
    </message>
    <message>
        <source>Choose the folder with your takes at the top left. A double click on a take plays it.</source>
        <translation>左上でテイクのフォルダーを選びます。テイクをダブルクリックすると再生します。</translation>
    </message>
    <message>
        <source>Turn the width</source>
        <translation>幅を調整する</translation>
    </message>
    <message>
        <source>Drag the dial from MONO to 150° while you listen. Gain makes a take louder or softer.</source>
        <translation>聴きながらダイヤルを MONO から 150° までドラッグします。ゲインはテイクを大きくも小さくもします。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Export writes what you hear into a new stereo file. The take itself is never changed.</source>
        <translation>聴いているとおりの音を新しいステレオファイルに書き出します。テイクそのものは決して変更されません。</translation>
    </message>
    <message>
        <source>Plug in the recorder</source>
        <translation>レコーダーをつなぐ</translation>
    </message>
    <message>
        <source>Connected over USB, it shows the room left on its card and lets you set battery type and auto power off.</source>
        <translation>USB で接続すると、カードの残りが表示され、電池の種類と自動電源オフを設定できます。</translation>
    </message>
    <message>
        <source>Welcome to TARN J4 Mixdeck</source>
        <translation>TARN J4 Mixdeck へようこそ</translation>
    </message>
    <message>
        <source>Do not show this again</source>
        <translation>次回から表示しない</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>はじめに</translation>
    </message>
</context>
<context>
    <name>J4GainSlider</name>
    <message>
        <source>Gain</source>
        <translation>ゲイン</translation>
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
        <translation>再生位置</translation>
    </message>
</context>
<context>
    <name>LevelFeed</name>
    <message>
        <source>Greatest level so far; a click clears it</source>
        <translation>これまでの最大レベル。クリックでクリア</translation>
    </message>
    <message>
        <source>recorder&apos;s rule</source>
        <translation>レコーダー方式</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>ピークホールド</translation>
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
        <translation>ループ：再生位置に A を設定</translation>
    </message>
    <message>
        <source>Loop: mark B at the play head</source>
        <translation>ループ：再生位置に B を設定</translation>
    </message>
    <message>
        <source>Loop: clear A and B</source>
        <translation>ループ：A と B を解除</translation>
    </message>
</context>
<context>
    <name>LoudnessField</name>
    <message>
        <source>Loudness to aim at</source>
        <translation>目標ラウドネス</translation>
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
        <translation>レコーダー</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Connect the recorder over USB and switch it on. Its settings can be changed here as soon as it is found.</source>
        <translation>レコーダーを USB で接続し、電源を入れてください。検出されるとここで設定を変更できます。</translation>
    </message>
    <message>
        <source>No recorder is connected</source>
        <translation>レコーダーが接続されていません</translation>
    </message>
</context>
<context>
    <name>PathViewer</name>
    <message>
        <source>Current folder</source>
        <translation>現在のフォルダー</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
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
        <translation>ループ</translation>
    </message>
    <message>
        <source>M</source>
        <comment>Mid</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>Solo Mid</source>
        <translation>ソロ ミッド</translation>
    </message>
    <message>
        <source>S</source>
        <comment>Side</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Solo Side</source>
        <translation>ソロ サイド</translation>
    </message>
    <message>
        <source>Place in the take</source>
        <translation>テイク内の位置</translation>
    </message>
    <message>
        <source>Length of the take</source>
        <translation>テイクの長さ</translation>
    </message>
    <message>
        <source>Position: drag or scroll</source>
        <translation>再生位置：ドラッグまたはスクロール</translation>
    </message>
    <message>
        <source>Volume of what you hear; an export keeps its level</source>
        <translation>聴くときの音量。書き出しのレベルは変わりません</translation>
    </message>
</context>
<context>
    <name>QueueModel</name>
    <message>
        <source>Waiting</source>
        <translation>待機中</translation>
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
        <translation>キャンセルしています</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>書き出し済み</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>キャンセル済み</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>Progress of all</source>
        <translation>全体の進行状況</translation>
    </message>
    <message>
        <source>Exports</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Cancel the selected exports</source>
        <translation>選択した書き出しをキャンセル</translation>
    </message>
    <message>
        <source>%1 of %2 exported</source>
        <translation>%2 件中 %1 件を書き出し済み</translation>
    </message>
    <message>
        <source>%1, %2 failed</source>
        <translation>%1、%2 件失敗</translation>
    </message>
    <message>
        <source>Cancel all</source>
        <translation>すべてキャンセル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>Reason</name>
    <message>
        <source>Not a WAVE file: %1</source>
        <translation>WAVE ファイルではありません：%1</translation>
    </message>
    <message>
        <source>shorter than 48 bytes</source>
        <translation>48 バイト未満</translation>
    </message>
    <message>
        <source>not a RIFF file</source>
        <translation>RIFF ファイルではありません</translation>
    </message>
    <message>
        <source>a RIFF file, but not WAVE</source>
        <translation>RIFF ファイルですが WAVE ではありません</translation>
    </message>
    <message>
        <source>an RF64 file without its sizes (ds64 chunk)</source>
        <translation>サイズ情報（ds64 チャンク）のない RF64 ファイル</translation>
    </message>
    <message>
        <source>more chunks than a recording has</source>
        <translation>録音にはない数のチャンクがあります</translation>
    </message>
    <message>
        <source>no format chunk</source>
        <translation>フォーマットチャンクがありません</translation>
    </message>
    <message>
        <source>no data chunk</source>
        <translation>データチャンクがありません</translation>
    </message>
    <message>
        <source>No broadcast extension (bext chunk)</source>
        <translation>ブロードキャスト拡張（bext チャンク）がありません</translation>
    </message>
    <message>
        <source>The broadcast extension has %1 bytes, fewer than %2</source>
        <translation>ブロードキャスト拡張は %1 バイトで、%2 バイトに足りません</translation>
    </message>
    <message>
        <source>Not a recording of the %1: its originator is &quot;%2&quot;</source>
        <translation>%1 の録音ではありません：作成元は「%2」です</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>The file became shorter</source>
        <translation>ファイルが短くなりました</translation>
    </message>
    <message>
        <source>The file has been deleted</source>
        <translation>ファイルが削除されました</translation>
    </message>
    <message>
        <source>No recording is open</source>
        <translation>開いている録音がありません</translation>
    </message>
    <message>
        <source>The target is the source itself</source>
        <translation>書き出し先が元のファイルと同じです</translation>
    </message>
    <message>
        <source>The export would take %1 bytes; a WAVE file ends at 4 GiB</source>
        <translation>書き出しは %1 バイトになります。WAVE ファイルは 4 GiB までです</translation>
    </message>
    <message>
        <source>The source cannot be read: %1</source>
        <translation>元のファイルを読み込めません：%1</translation>
    </message>
    <message>
        <source>The recording has no loudness at this width: it is silent or shorter than 0.4 s</source>
        <translation>この幅では録音にラウドネスがありません：無音か 0.4 秒未満です</translation>
    </message>
    <message>
        <source>No file can be read</source>
        <translation>ファイルを読み込めません</translation>
    </message>
    <message>
        <source>Samples of %1 bits in format %2 cannot be played</source>
        <translation>形式 %2 の %1 ビットサンプルは再生できません</translation>
    </message>
    <message>
        <source>There are no channels</source>
        <translation>チャンネルがありません</translation>
    </message>
    <message>
        <source>There is no sample rate</source>
        <translation>サンプルレートがありません</translation>
    </message>
    <message>
        <source>No sound server was found (%1).</source>
        <translation>サウンドサーバーが見つかりませんでした（%1）。</translation>
    </message>
    <message>
        <source>The sound server has gone (%1).</source>
        <translation>サウンドサーバーとの接続が切れました（%1）。</translation>
    </message>
    <message>
        <source>The sound server did not answer.</source>
        <translation>サウンドサーバーが応答しませんでした。</translation>
    </message>
    <message>
        <source>The sound output was not there (%1).</source>
        <translation>サウンド出力が見つかりませんでした（%1）。</translation>
    </message>
    <message>
        <source>The sound output has stopped.</source>
        <translation>サウンド出力が停止しました。</translation>
    </message>
    <message>
        <source>The sound output could not be started (%1).</source>
        <translation>サウンド出力を開始できませんでした（%1）。</translation>
    </message>
    <message>
        <source>The sound output does not take %1 channels at %2 Hz.</source>
        <translation>サウンド出力は %1 チャンネル %2 Hz に対応していません。</translation>
    </message>
    <message>
        <source>no thread can be had</source>
        <translation>スレッドを確保できません</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>そのようなファイルやフォルダーはありません</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>許可がありません</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>許可されていない操作です</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>入出力エラー</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>空き容量がありません</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>ディスク割り当ての超過</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>読み込み専用ファイルシステムです</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>ファイルが既に存在します</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>ファイル名が長すぎます</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>フォルダーではありません</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>無効な引数です</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>そのようなデバイスはありません</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>古いファイルハンドルです</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>開いているファイルが多すぎます</translation>
    </message>
    <message>
        <source>Connection refused</source>
        <translation>接続が拒否されました</translation>
    </message>
    <message>
        <source>Connection terminated</source>
        <translation>接続が終了しました</translation>
    </message>
    <message>
        <source>Sample bytes have been written already</source>
        <translation>サンプルは既に書き込まれています</translation>
    </message>
    <message>
        <source>The file was dropped before it was saved</source>
        <translation>ファイルは保存前に破棄されました</translation>
    </message>
    <message>
        <source>The file has been saved already</source>
        <translation>ファイルは既に保存されています</translation>
    </message>
    <message>
        <source>The file was written for another place</source>
        <translation>ファイルは別の場所用に書かれました</translation>
    </message>
    <message>
        <source>There are too many channels, or too many frames a second.</source>
        <translation>チャンネル数か毎秒のサンプル数が多すぎます。</translation>
    </message>
    <message>
        <source>There is no ALSA sequencer here (%1).</source>
        <translation>ここには ALSA シーケンサーがありません（%1）。</translation>
    </message>
    <message>
        <source>No permission to use the ALSA sequencer (%1).</source>
        <translation>ALSA シーケンサーを使う権限がありません（%1）。</translation>
    </message>
    <message>
        <source>The ALSA sequencer cannot be used (%1: %2).</source>
        <translation>ALSA シーケンサーを使えません（%1：%2）。</translation>
    </message>
    <message>
        <source>The ALSA sequencer has gone (%1).</source>
        <translation>ALSA シーケンサーとの接続が切れました（%1）。</translation>
    </message>
    <message>
        <source>This kernel or alsa-lib has no Universal MIDI Packets, which were asked for.</source>
        <translation>このカーネルまたは alsa-lib には、求められた Universal MIDI Packets がありません。</translation>
    </message>
    <message>
        <source>Markers and descriptions of the recording cannot be read</source>
        <translation>録音のマーカーと説明を読み込めません</translation>
    </message>
    <message>
        <source>No audio: the data chunk states %1 bytes, the file holds %2 after it</source>
        <translation>音声なし：データチャンクは %1 バイトと示し、その後のファイルは %2 バイトです</translation>
    </message>
    <message>
        <source>Cut short: the data chunk states %1 bytes, the file holds %2</source>
        <translation>途中で切れています：データチャンクは %1 バイトと示し、ファイルは %2 バイトです</translation>
    </message>
    <message>
        <source>%1 channels of %2-bit samples with format tag %3 do not decode to useful sound; the recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)</source>
        <translation>%1 チャンネル、%2 ビット、形式 %3 のサンプルは使える音になりません。レコーダーは 2 チャンネル、24 ビット整数または 32 ビットフロート（形式 3）で記録します</translation>
    </message>
    <message>
        <source>The take cannot be read: %1</source>
        <translation>テイクを読み込めません：%1</translation>
    </message>
    <message>
        <source>The card cannot be read: %1</source>
        <translation>カードを読み込めません：%1</translation>
    </message>
    <message>
        <source>The card is no folder</source>
        <translation>カードがフォルダーではありません</translation>
    </message>
    <message>
        <source>The card is never written to, but holds the folder</source>
        <translation>カードには書き込みませんが、フォルダーがその中にあります</translation>
    </message>
    <message>
        <source>The card holds no takes</source>
        <translation>カードにテイクがありません</translation>
    </message>
    <message>
        <source>The card is gone</source>
        <translation>カードが取り外されました</translation>
    </message>
    <message>
        <source>The folder cannot be made: %1</source>
        <translation>フォルダーを作成できません：%1</translation>
    </message>
    <message>
        <source>The folder cannot be written to: %1</source>
        <translation>フォルダーに書き込めません：%1</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1</source>
        <translation>フォルダーを読み込めません：%1</translation>
    </message>
    <message>
        <source>Another copy is at work there</source>
        <translation>別のコピーがそこで実行中です</translation>
    </message>
    <message>
        <source>A copy is at work there</source>
        <translation>そこでコピーを実行中です</translation>
    </message>
    <message>
        <source>The folder is being verified</source>
        <translation>フォルダーを検証中です</translation>
    </message>
    <message>
        <source>The manifest cannot be read: %1</source>
        <translation>マニフェストを読み込めません：%1</translation>
    </message>
    <message>
        <source>The manifest cannot be written: %1</source>
        <translation>マニフェストを書き込めません：%1</translation>
    </message>
    <message>
        <source>It has no manifest (%1)</source>
        <translation>マニフェストがありません（%1）</translation>
    </message>
    <message>
        <source>The takes and their manifest need %1 bytes, and %2 are free</source>
        <translation>テイクとそのマニフェストには %1 バイト必要ですが、空きは %2 です</translation>
    </message>
    <message>
        <source>Its name is not UTF-8, and cannot stand in a manifest</source>
        <translation>名前が UTF-8 ではなく、マニフェストに書けません</translation>
    </message>
    <message>
        <source>What is there is no file</source>
        <translation>そこにあるのはファイルではありません</translation>
    </message>
    <message>
        <source>The take has %1 bytes, the file that is there %2</source>
        <translation>テイクは %1 バイト、そこにあるファイルは %2 バイトです</translation>
    </message>
    <message>
        <source>The file that is there has another content</source>
        <translation>そこにあるファイルは内容が異なります</translation>
    </message>
    <message>
        <source>It was changed while it was read</source>
        <translation>読み込み中に変更されました</translation>
    </message>
    <message>
        <source>What was written does not read back as it was</source>
        <translation>書き込んだ内容が読み戻しと一致しません</translation>
    </message>
    <message>
        <source>the manifest has no hash of it that is known here</source>
        <translation>マニフェストにここで扱えるハッシュがありません</translation>
    </message>
    <message>
        <source>%1 bytes, not %2</source>
        <translation>%2 ではなく %1 バイト</translation>
    </message>
    <message>
        <source>another content</source>
        <translation>内容が異なります</translation>
    </message>
    <message>
        <source>it cannot be listed</source>
        <translation>一覧を取得できません</translation>
    </message>
    <message>
        <source>it is not well-formed</source>
        <translation>書式が正しくありません</translation>
    </message>
    <message>
        <source>it is no such list</source>
        <translation>そのようなリストではありません</translation>
    </message>
    <message>
        <source>a path in it leads out of the folder</source>
        <translation>フォルダーの外を指すパスがあります</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>読み込めません</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>it is not in the chain</source>
        <translation>チェーンに含まれていません</translation>
    </message>
    <message>
        <source>it was changed after it was written</source>
        <translation>書き込み後に変更されています</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>メモリが足りません</translation>
    </message>
    <message>
        <source>the data chunk states %1 bytes, the file holds %2</source>
        <translation>データチャンクは %1 バイトと示し、ファイルは %2 バイトです</translation>
    </message>
    <message>
        <source>1 byte of half a frame at the end</source>
        <translation>末尾に途中で切れたフレームの 1 バイトがあります</translation>
    </message>
    <message>
        <source>%1 bytes of half a frame at the end</source>
        <translation>末尾に途中で切れたフレームの %1 バイトがあります</translation>
    </message>
    <message>
        <source>%1 zero bytes at the end, where no sound was written</source>
        <translation>末尾に音が書き込まれていないゼロが %1 バイトあります</translation>
    </message>
    <message>
        <source>the file states %1 bytes, and has %2</source>
        <translation>ファイルは %1 バイトと示し、実際は %2 バイトです</translation>
    </message>
    <message>
        <source>%1 zero bytes after the end of the take</source>
        <translation>テイクの終わりの後にゼロが %1 バイトあります</translation>
    </message>
    <message>
        <source>it does not begin as a WAVE file</source>
        <translation>先頭が WAVE ファイルではありません</translation>
    </message>
    <message>
        <source>its format has no frames</source>
        <translation>フォーマットにフレームがありません</translation>
    </message>
    <message>
        <source>there is no format chunk before the sound</source>
        <translation>音の前にフォーマットチャンクがありません</translation>
    </message>
    <message>
        <source>no sound is found in it (data chunk)</source>
        <translation>音が見つかりません（データチャンク）</translation>
    </message>
    <message>
        <source>no sound was written to it</source>
        <translation>音が書き込まれていません</translation>
    </message>
</context>
<context>
    <name>RecorderSettings</name>
    <message>
        <source>Alkaline</source>
        <translation>アルカリ</translation>
    </message>
    <message>
        <source>Ni-MH</source>
        <translation>ニッケル水素</translation>
    </message>
    <message>
        <source>Lithium</source>
        <translation>リチウム</translation>
    </message>
    <message>
        <source>Li-ion</source>
        <translation>リチウムイオン</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 分</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 分</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 時間</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
</context>
<context>
    <name>RepairOffer</name>
    <message>
        <source>The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The take itself stays as it is.</source>
        <translation>%1 の録音は途中で切れています。%2 秒分の音を隣の %3 に復旧できます。テイクそのものはそのままです。</translation>
    </message>
    <message>
        <source>Salvage</source>
        <translation>復旧</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <source>%1 is being salvaged…</source>
        <translation>%1 を復旧しています…</translation>
    </message>
    <message>
        <source>%1 was not saved: %2.</source>
        <translation>%1 を保存できませんでした：%2。</translation>
    </message>
    <message>
        <source>Fail to save.</source>
        <translation>保存できませんでした。</translation>
    </message>
    <message>
        <source>What was found:</source>
        <translation>見つかった問題：</translation>
    </message>
    <message>
        <source>%1 is salvaged into %2.</source>
        <translation>%1 を %2 に復旧しました。</translation>
    </message>
</context>
<context>
    <name>RowMenu</name>
    <message>
        <source>What is selected</source>
        <translation>選択中の項目</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>開く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Export %1…</source>
        <translation>%1 を書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Show in file manager</source>
        <translation>ファイルマネージャーに表示(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Copy path</source>
        <translation>パスをコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Copy paths</source>
        <translation>パスをコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>情報(&amp;I)</translation>
    </message>
</context>
<context>
    <name>RowReader</name>
    <message>
        <source>width %1°</source>
        <translation>幅 %1°</translation>
    </message>
    <message>
        <source>gain %1 dB</source>
        <translation>ゲイン %1 dB</translation>
    </message>
    <message>
        <source>Exported as %1: %2</source>
        <translation>%1 として書き出し：%2</translation>
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
        <translation>フォルダーと録音</translation>
    </message>
    <message>
        <source>Saving checkboard...</source>
        <translation>書き出しファイルの保存</translation>
    </message>
    <message>
        <source>Please select a path where to save decoded wav.</source>
        <translation>デコードした WAV の保存先を選んでください。</translation>
    </message>
    <message>
        <source>Create new folder</source>
        <translation>新しいフォルダーを作成</translation>
    </message>
    <message>
        <source>The name is too long.</source>
        <translation>名前が長すぎます。</translation>
    </message>
    <message>
        <source>“%1” exists. Replace it?</source>
        <translation>「%1」は既にあります。置き換えますか？</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換え</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新しいフォルダー</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>新しいフォルダーの名前：</translation>
    </message>
    <message>
        <source>Making “%1”…</source>
        <translation>「%1」を作成しています…</translation>
    </message>
    <message>
        <source>“%1” cannot be made: %2</source>
        <translation>「%1」を作成できません：%2</translation>
    </message>
</context>
<context>
    <name>SelectionPane</name>
    <message numerus="yes">
        <source>%n takes</source>
        <translation>
            <numerusform>テイク %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>Export %1…</source>
        <translation>%1 を書き出し…</translation>
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
        <translation>ダブルクリックで %1°（単純な和と差）にします</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>ミュート解除</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Type the stereo width</source>
        <translation>ステレオ幅を入力</translation>
    </message>
    <message>
        <source>Type the gain</source>
        <translation>ゲインを入力</translation>
    </message>
</context>
<context>
    <name>StageView</name>
    <message>
        <source>Stereo width</source>
        <translation>ステレオ幅</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>音像</translation>
    </message>
    <message>
        <source>Gain scale</source>
        <translation>ゲイン目盛り</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>ゲイン</translation>
    </message>
    <message>
        <source>Level scale</source>
        <translation>レベル目盛り</translation>
    </message>
    <message>
        <source>Level left</source>
        <translation>左レベル</translation>
    </message>
    <message>
        <source>L</source>
        <comment>left channel</comment>
        <translation>L</translation>
    </message>
    <message>
        <source>Level right</source>
        <translation>右レベル</translation>
    </message>
    <message>
        <source>R</source>
        <comment>right channel</comment>
        <translation>R</translation>
    </message>
    <message>
        <source>Peak left</source>
        <translation>左ピーク</translation>
    </message>
    <message>
        <source>Clip left</source>
        <translation>左クリップ</translation>
    </message>
    <message>
        <source>Peak right</source>
        <translation>右ピーク</translation>
    </message>
    <message>
        <source>Clip right</source>
        <translation>右クリップ</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>peak hold</source>
        <translation>ピークホールド</translation>
    </message>
    <message>
        <source>The recorder</source>
        <translation>レコーダー</translation>
    </message>
    <message>
        <source>Gain: drag or scroll; a double click sets 0 dB</source>
        <translation>ゲイン：ドラッグまたはスクロール。ダブルクリックで 0 dB にします</translation>
    </message>
    <message>
        <source>Level of the left channel, before the volume</source>
        <translation>左チャンネルのレベル（音量調整前）</translation>
    </message>
    <message>
        <source>Level of the right channel, before the volume</source>
        <translation>右チャンネルのレベル（音量調整前）</translation>
    </message>
</context>
<context>
    <name>StayAwake</name>
    <message>
        <source>Recordings are being exported or copied</source>
        <translation>録音を書き出しまたはコピーしています</translation>
    </message>
</context>
<context>
    <name>StereoScope</name>
    <message>
        <source>Stereo scope</source>
        <translation>ベクトルスコープ</translation>
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
        <translation>はい</translation>
    </message>
    <message>
        <source>no</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>%1 channels, %2 Hz, %3-bit %4</source>
        <translation>%1 チャンネル、%2 Hz、%3 ビット %4</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Of the recorder</source>
        <translation>レコーダーの録音</translation>
    </message>
    <message>
        <source>Raw M/S</source>
        <translation>未加工 M/S</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>備考</translation>
    </message>
    <message>
        <source>%1 bytes at %2</source>
        <translation>オフセット %2、%1 バイト</translation>
    </message>
    <message>
        <source>, and %1 more of it</source>
        <translation>、さらに %1</translation>
    </message>
    <message>
        <source>integer PCM</source>
        <translation>整数 PCM</translation>
    </message>
    <message>
        <source>IEEE float</source>
        <translation>IEEE フロート</translation>
    </message>
    <message>
        <source>extensible</source>
        <translation>拡張形式</translation>
    </message>
    <message>
        <source>other</source>
        <translation>その他</translation>
    </message>
</context>
<context>
    <name>TakeInformation</name>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>読み込んでいます…</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>備考</translation>
    </message>
    <message>
        <source>No thread can be had to read it.</source>
        <translation>読み込むスレッドを確保できません。</translation>
    </message>
    <message>
        <source>Chunks</source>
        <translation>チャンク</translation>
    </message>
    <message>
        <source>Broadcast extension</source>
        <translation>ブロードキャスト拡張</translation>
    </message>
    <message>
        <source>Figures at %1° and %2 dB</source>
        <translation>%1°、%2 dB での値</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>測定しています…</translation>
    </message>
    <message>
        <source>Integrated loudness</source>
        <translation>平均ラウドネス</translation>
    </message>
    <message>
        <source>Loudness range</source>
        <translation>ラウドネスレンジ</translation>
    </message>
    <message>
        <source>Momentary, at most</source>
        <translation>モーメンタリー最大</translation>
    </message>
    <message>
        <source>Short-term, at most</source>
        <translation>ショートターム最大</translation>
    </message>
    <message>
        <source>True peak</source>
        <translation>トゥルーピーク</translation>
    </message>
    <message>
        <source>Sample peak</source>
        <translation>サンプルピーク</translation>
    </message>
    <message>
        <source>Correlation</source>
        <translation>相関</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>バランス</translation>
    </message>
</context>
<context>
    <name>TakeMessages</name>
    <message>
        <source>%1 is being opened… (Esc gives up)</source>
        <translation>%1 を開いています…（Esc で中止）</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>File not supported.</source>
        <translation>対応していないファイルです。</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Open it again once it is back.</source>
        <translation>%1 を読み込めません：%2。読めるようになったら開き直してください。</translation>
    </message>
    <message>
        <source>Paused: %1 Press Play to try again.</source>
        <translation>一時停止：%1「再生」を押すと再試行します。</translation>
    </message>
</context>
<context>
    <name>TakeRecall</name>
    <message>
        <source>What was remembered of takes was damaged. It was set aside as “%1”, and a new one begun.</source>
        <translation>テイクの記憶データが壊れていました。「%1」として退避し、新しく作りました。</translation>
    </message>
    <message>
        <source>What is remembered of takes is of a newer version of the program. It is left alone, and nothing is remembered.</source>
        <translation>テイクの記憶データは、より新しい版のプログラムのものです。そのまま残し、何も記憶しません。</translation>
    </message>
    <message>
        <source>What takes were heard with cannot be remembered.</source>
        <translation>テイクを聴いた設定を記憶できません。</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>About %1 s left</source>
        <translation>残り約 %1 秒</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>残り約 %1 分</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>フォルダーに表示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>%1 of %2 takes</source>
        <translation>テイク %2 件中 %1 件</translation>
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
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Cancelling</source>
        <translation>キャンセルしています</translation>
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
        <translation>すべての一覧は取得できませんでした。</translation>
    </message>
    <message>
        <source>The manifest itself is not right.</source>
        <translation>マニフェスト自体が正しくありません。</translation>
    </message>
    <message>
        <source>%1 could not be listed: %2</source>
        <translation>%1 の一覧を取得できませんでした：%2</translation>
    </message>
    <message>
        <source>The manifest is not right: %1</source>
        <translation>マニフェストに問題があります：%1</translation>
    </message>
    <message>
        <source>%1: copied and verified</source>
        <translation>%1：コピーして検証しました</translation>
    </message>
    <message>
        <source>%1: there already</source>
        <translation>%1：既にあります</translation>
    </message>
    <message>
        <source>%1 differs: %2</source>
        <translation>%1 は異なります：%2</translation>
    </message>
    <message>
        <source>%1 was not copied: %2</source>
        <translation>%1 はコピーされませんでした：%2</translation>
    </message>
    <message numerus="yes">
        <source>%n takes are there and verified</source>
        <translation>
            <numerusform>%n 件のテイクがそろい、検証済みです</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 takes are there and verified</source>
        <translation>テイク %2 件中 %1 件がそろい、検証済みです</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>キャンセルしました。</translation>
    </message>
    <message>
        <source>What was copied stays; the next copy goes on from there.</source>
        <translation>コピーした分は残り、次のコピーはそこから続きます。</translation>
    </message>
    <message>
        <source>%1 has changed: %2</source>
        <translation>%1 は変わっています：%2</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 がありません</translation>
    </message>
    <message>
        <source>%1 is now %2</source>
        <translation>%1 は現在 %2 です</translation>
    </message>
    <message>
        <source>%1 is new</source>
        <translation>%1 は新しいファイルです</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 を読み込めません：%2</translation>
    </message>
    <message numerus="yes">
        <source>%n files are right</source>
        <translation>
            <numerusform>%n 件のファイルはすべて正常です</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 right, %2 not</source>
        <translation>正常 %1 件、問題あり %2 件</translation>
    </message>
</context>
<context>
    <name>TransportPane</name>
    <message>
        <source>Raw M/S</source>
        <translation>未加工 M/S</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>ステレオ</translation>
    </message>
    <message>
        <source>%1-bit float</source>
        <translation>%1 ビットフロート</translation>
    </message>
    <message>
        <source>%1-bit</source>
        <translation>%1 ビット</translation>
    </message>
    <message>
        <source>%1 kHz</source>
        <translation>%1 kHz</translation>
    </message>
    <message>
        <source>Double-click a recording to play it</source>
        <translation>録音をダブルクリックすると再生します</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
</context>
<context>
    <name>ValueField</name>
    <message>
        <source>Click to type a value</source>
        <translation>クリックして値を入力</translation>
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
        <translation>ブラウザーを開けませんでした。ヘルプは %1 にあります</translation>
    </message>
    <message>
        <source>Solo is for listening: Left and Right are exported.</source>
        <translation>ソロは試聴用です。左右のチャンネルが書き出されます。</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Open folder…</source>
        <translation>フォルダーを開く(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Clear peaks</source>
        <translation>ピークをクリア(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Meters by the recorder&apos;s rule</source>
        <translation>メーターをレコーダー方式で表示(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Keys and pointer</source>
        <translation>キーとポインター(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Introduction</source>
        <translation>はじめに(&amp;I)</translation>
    </message>
    <message>
        <source>Online &amp;help</source>
        <translation>オンラインヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>このアプリについて(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Playing</source>
        <translation>再生(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Play or pause</source>
        <translation>再生／一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Back 1 s</source>
        <translation>1 秒戻る(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Forward 1 s</source>
        <translation>1 秒進む(&amp;F)</translation>
    </message>
    <message>
        <source>Back 10 s</source>
        <translation>10 秒戻る</translation>
    </message>
    <message>
        <source>Forward 10 s</source>
        <translation>10 秒進む</translation>
    </message>
    <message>
        <source>To the be&amp;ginning</source>
        <translation>先頭へ(&amp;G)</translation>
    </message>
    <message>
        <source>To the &amp;end</source>
        <translation>末尾へ(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Louder by 1 dB</source>
        <translation>1 dB 大きく(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Softer by 1 dB</source>
        <translation>1 dB 小さく(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Wider by 5°</source>
        <translation>5° 広く(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Narrower by 5°</source>
        <translation>5° 狭く(&amp;N)</translation>
    </message>
    <message>
        <source>L&amp;oop: A, B, clear</source>
        <translation>ループ：A、B、解除(&amp;O)</translation>
    </message>
    <message>
        <source>Solo &amp;Mid</source>
        <translation>ソロ ミッド(&amp;M)</translation>
    </message>
    <message>
        <source>Solo S&amp;ide</source>
        <translation>ソロ サイド(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Remember width, gain and loop</source>
        <translation>幅・ゲイン・ループを記憶(&amp;R)</translation>
    </message>
    <message>
        <source>Order of the &amp;list</source>
        <translation>リストの並び順(&amp;L)</translation>
    </message>
    <message>
        <source>By &amp;name</source>
        <translation>名前順(&amp;N)</translation>
    </message>
    <message>
        <source>By &amp;recording time</source>
        <translation>録音時刻順(&amp;R)</translation>
    </message>
    <message>
        <source>By &amp;duration</source>
        <translation>長さ順(&amp;D)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>Copy car&amp;d…</source>
        <translation>カードをコピー(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Verify folder…</source>
        <translation>フォルダーを検証(&amp;V)…</translation>
    </message>
</context>
</TS>
