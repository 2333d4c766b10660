<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>Messages</name>
    <message>
        <source>Animated WebP file was saved.

%s</source>
        <translation>アニメーションWebPファイルを保存しました。

%s</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="8"/>
        <location filename="../src/app/qt_prompter.cpp" line="18"/>
        <location filename="../src/app/qt_prompter.cpp" line="25"/>
        <source>Confirmation</source>
        <translation>確認</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="9"/>
        <source>Now rendering, Abort current process?</source>
        <translation>レンダリング中です。現在の処理を中止しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="10"/>
        <source>Now rendering. Save the file after the precedeing process is finnished.

Abort current process?</source>
        <translation>レンダリング中です。ファイルは実行中の処理が終わってから保存してください。

現在の処理を中止しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="13"/>
        <source>Now rendering. Change the size after the preceding process is finnished.

Abort current process?</source>
        <translation>レンダリング中です。サイズは実行中の処理が終わってから変更してください。

現在の処理を中止しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="16"/>
        <source>Now rendering. Abort current process to exit the program?</source>
        <translation>レンダリング中です。現在の処理を中止してプログラムを終了しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="17"/>
        <source>Refractive index must be set within the range of 1.00 to 3.00.</source>
        <translation>屈折率は 1.00 から 3.00 の範囲で設定してください。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="18"/>
        <source>Failed to open file.</source>
        <translation>ファイルを開けませんでした。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="19"/>
        <source>Capturing was aborted.</source>
        <translation>キャプチャを中止しました。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="20"/>
        <location filename="../src/ui/setting_dialog.h" line="55"/>
        <source>Restore default settings?</source>
        <translation>初期値に戻しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="21"/>
        <location filename="../src/ui/setting_dialog.h" line="57"/>
        <source>Restore default setting?</source>
        <translation>初期値に戻しますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="22"/>
        <source>All frames have not been captured.

Resume capturing by choosing &quot;Resume(R)&quot;
from &quot;Automatic Screen Capture(P)&quot; menu.</source>
        <translation>まだキャプチャされていないフレームがあります。

「自動スクリーンキャプチャ(P)」メニューの
「再開(R)」でキャプチャを再開してください。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="25"/>
        <source>This Capture-Info File reports
&quot;All the nessesary frames have already been captured.&quot; 

Do you try File-Existance-Check for each frame,
and if any frame is found missing,
redraw for it to complete the whole set of frames?</source>
        <translation>このキャプチャ情報ファイルには
「必要なフレームはすべてキャプチャ済み」と記録されています。

各フレームのファイル存在チェックを行い、
欠けているフレームがあれば
再描画してフレーム一式を完成させますか?</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="30"/>
        <source>Only &quot;Screen-Shot Picture File&quot; was saved.

To save its Position-Info File together,
Go to &quot;Settings(S)&quot; --&gt; &quot;General Settings(S)&quot;,
then check &quot;Position-Info File&quot; on that dialog.</source>
        <translation>「スクリーンショット画像ファイル」だけを保存しました。

位置情報ファイルも一緒に保存するには、
「設定(S)」→「全般設定(S)」を開き、
そのダイアログで「位置情報ファイル」をチェックしてください。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="34"/>
        <source>&quot;Screen-Shot Picture File&quot; and its &quot;Position-Info File&quot; were saved.

To read Position-Info File,
Go to &quot;ScreenShot(T)&quot; --&gt; &quot;Restore Position(R)&quot;.
It restores model&apos;s position to where it was captured.</source>
        <translation>「スクリーンショット画像ファイル」と「位置情報ファイル」を保存しました。

位置情報ファイルを読み込むには、
「スクリーンショット(T)」→「位置を復元(R)」を選びます。
モデルの位置が撮影したときの位置に戻ります。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="39"/>
        <source>All frames have been captured.

To make Animation GIF file from these frames,
Go to the &quot;Automatic Screen Capture(P)&quot; menu -&gt; &quot;Make Animation GIF(A)&quot;,
then on the &quot;Open Capture-Info File&quot; dialog,
Select this &quot;%s.sqi&quot; file.</source>
        <translation>すべてのフレームをキャプチャしました。

これらのフレームからアニメーションGIFファイルを作るには、
「自動スクリーンキャプチャ(P)」メニュー→「アニメーションGIFの作成(A)」を選び、
「キャプチャ情報ファイルを開く」ダイアログで
この「%s.sqi」ファイルを選んでください。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="44"/>
        <source>Animation GIF file was saved.

%s</source>
        <translation>アニメーションGIFファイルを保存しました。

%s</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="45"/>
        <source>Failed to open file.

Following file may not exist in the same directory.

%s


In this case, Resume capturing to complete the whole set of files.

Go to the &quot;Automatic Screen Capture(P)&quot; --&gt; &quot;Resume(R)&quot; then
&quot;File Existance Check(Yes/No)&quot; dialog will show up.
Click &quot;Yes&quot; to begin complement.</source>
        <translation>ファイルを開けませんでした。

同じフォルダーに次のファイルが無い可能性があります。

%s


その場合は、キャプチャを再開してファイル一式を完成させてください。

「自動スクリーンキャプチャ(P)」→「再開(R)」を選ぶと
「ファイル存在チェック(はい/いいえ)」のダイアログが表示されます。
「はい」をクリックすると補完を始めます。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="52"/>
        <source>Failed to open file.

Following file exists but is damaged.

%s


In this case, Resume capturing to draw it again.

Go to the &quot;Automatic Screen Capture(P)&quot; --&gt; &quot;Resume(R)&quot; then
&quot;File Existance Check(Yes/No)&quot; dialog will show up.
Click &quot;Yes&quot; to begin complement.</source>
        <translation>ファイルを開けませんでした。

次のファイルはありますが、壊れています。

%s


その場合は、キャプチャを再開して描き直してください。

「自動スクリーンキャプチャ(P)」→「再開(R)」を選ぶと
「ファイル存在チェック(はい/いいえ)」のダイアログが表示されます。
「はい」をクリックすると補完を始めます。</translation>
    </message>
    <message>
        <location filename="../src/app/message_texts.cpp" line="52"/>
        <source>A frame could not be saved, so capturing has stopped.

%s

Resume capturing when the cause is mended: it carries on from this frame.</source>
        <translation>フレームを保存できなかったため、キャプチャを中止しました。

%s

原因を取り除いてからキャプチャを再開してください。このフレームから続けます。</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.h" line="46"/>
        <source>The trimming margins leave no picture.

Top + Bottom and Left + Right must each be smaller than the image size.</source>
        <translation>トリミングの余白で画像が残りません。

上 + 下 と 左 + 右 は、それぞれ画像サイズより小さくしてください。</translation>
    </message>
</context>
<context>
    <name>OutputFlows</name>
    <message>
        <location filename="../src/app/output_flows.cpp" line="38"/>
        <source>Nothing has been rendered yet: press Ray-Trace first.</source>
        <translation>まだ何もレンダリングされていません。先に「レイトレース」を押してください。</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="40"/>
        <source>Bitmap 24bit FullColor (*.bmp)</source>
        <translation>ビットマップ 24ビット フルカラー (*.bmp)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="41"/>
        <source>Bitmap 16bit HighColor (*.bmp)</source>
        <translation>ビットマップ 16ビット ハイカラー (*.bmp)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="42"/>
        <source>Bitmap 256 Colors (*.bmp)</source>
        <translation>ビットマップ 256色 (*.bmp)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="43"/>
        <source>PNG 24bit FullColor (*.png)</source>
        <translation>PNG 24ビット フルカラー (*.png)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="44"/>
        <source>PNG 16bit HighColor (*.png)</source>
        <translation>PNG 16ビット ハイカラー (*.png)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="45"/>
        <source>PNG 256 Colors (*.png)</source>
        <translation>PNG 256色 (*.png)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="46"/>
        <source>GIF 256 Colors (*.gif)</source>
        <translation>GIF 256色 (*.gif)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="28"/>
        <source>Save Screen Shot</source>
        <translation>スクリーンショットの保存</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="29"/>
        <source>Open Position-Info File</source>
        <translation>位置情報ファイルを開く</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="30"/>
        <source>Position-Info File (*.gpi)</source>
        <translation>位置情報ファイル (*.gpi)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="36"/>
        <source>Automatic Screen Capturing</source>
        <translation>自動スクリーンキャプチャ中</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="31"/>
        <source>Save Capture-Info File</source>
        <translation>キャプチャ情報ファイルの保存</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="33"/>
        <source>Capture-Info File (*.sqi)</source>
        <translation>キャプチャ情報ファイル (*.sqi)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="32"/>
        <source>Open Capture-Info File</source>
        <translation>キャプチャ情報ファイルを開く</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="39"/>
        <source>The capture file&apos;s frame counts are damaged.</source>
        <translation>キャプチャファイルのフレーム数が壊れています。</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="34"/>
        <source>Save Animation GIF File</source>
        <translation>アニメーションGIFファイルの保存</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="35"/>
        <source>Animation GIF File (*.gif)</source>
        <translation>アニメーションGIFファイル (*.gif)</translation>
    </message>
    <message>
        <source>Animated WebP File (*.webp)</source>
        <translation>アニメーションWebPファイル (*.webp)</translation>
    </message>
    <message>
        <location filename="../src/app/output_flows.cpp" line="37"/>
        <source>Compiling Animated-GIF</source>
        <translation>アニメーションGIFを作成中</translation>
    </message>
    <message>
        <source>There is no design beside the record (%1 is missing): the record&apos;s cut is used.</source>
        <translation>記録の横にデザインがありません (%1 が見つかりません)。記録のカットを使います。</translation>
    </message>
    <message>
        <source>The design beside the record cannot be opened: the record&apos;s cut is used.

%1</source>
        <translation>記録の横のデザインを開けません。記録のカットを使います。

%1</translation>
    </message>
</context>
<context>
    <name>kirameki::BackColorLightDialog</name>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="17"/>
        <source>BackColor / Light Volume</source>
        <translation>背景色 / 光量</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="19"/>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="77"/>
        <source>Back Color</source>
        <translation>背景色</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="22"/>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="22"/>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="22"/>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="34"/>
        <source>Color...</source>
        <translation>色の選択...</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="40"/>
        <source>Light Volumes (Range = 0 to 200%)</source>
        <translation>光量 (範囲 = 0 ～ 200%)</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="43"/>
        <source>Main Light</source>
        <translation>メインライト</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="43"/>
        <source>Back Light</source>
        <translation>バックライト</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="44"/>
        <source>Fill Light</source>
        <translation>フィルライト</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="47"/>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <location filename="../src/ui/back_color_light_dialog.cpp" line="48"/>
        <source>( Default = 100% each )</source>
        <translation>( 初期値 = 各 100% )</translation>
    </message>
</context>
<context>
    <name>kirameki::CaptureHeaderDialog</name>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="15"/>
        <source>New Automatic Screen Capture</source>
        <translation>新規自動スクリーンキャプチャ</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="16"/>
        <source>Capture Info File Setting</source>
        <translation>キャプチャ情報ファイルの設定</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="23"/>
        <source>Number of Frames</source>
        <translation>フレーム数</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="27"/>
        <source>Frames</source>
        <translation>フレーム</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="29"/>
        <source>Larger the number gets, More fluent the motion becomes.</source>
        <translation>数が大きいほど、動きが滑らかになります。</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="31"/>
        <source>( Default = 128 )</source>
        <translation>( 初期値 = 128 )</translation>
    </message>
    <message>
        <location filename="../src/ui/capture_header_dialog.cpp" line="34"/>
        <source>These frames collectively compose the motion of a full rotation.</source>
        <translation>これらのフレーム全体で 1 回転分の動きになります。</translation>
    </message>
</context>
<context>
    <name>kirameki::GeneralSettingsDialog</name>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="19"/>
        <source>General Settings</source>
        <translation>全般設定</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="21"/>
        <source>Ray-Tracing</source>
        <translation>レイトレーシング</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="23"/>
        <source>Depth Of Recursive Calculation (Max=20)</source>
        <translation>再帰計算の深さ (最大=20)</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="25"/>
        <source>Fire</source>
        <translation>ファイア (分散)</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="29"/>
        <source>Use </source>
        <translation>メインライトを</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="29"/>
        <source>Narrow</source>
        <translation>絞る</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="29"/>
        <source> Main Light ( Smaller High-Light )</source>
        <translation> ( ハイライトが小さくなる )</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="33"/>
        <source>Screen Shot</source>
        <translation>スクリーンショット</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="35"/>
        <source>Position-Info File</source>
        <translation>位置情報ファイル</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="38"/>
        <source>Saves the model&apos;s position beside each screen shot.</source>
        <translation>スクリーンショットごとにモデルの位置も保存します。</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="41"/>
        <source>View Panel</source>
        <translation>ビューパネル</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="43"/>
        <source>Rotation Wait Per Step</source>
        <translation>回転 1 ステップの待ち時間</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="44"/>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="45"/>
        <source>Smaller this value gets, Faster the model turns. ( Default = 50 )</source>
        <translation>値が小さいほど、モデルは速く回ります。( 初期値 = 50 )</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="46"/>
        <source>Show View-Point Target Picture</source>
        <translation>視点ターゲットの図を表示</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="49"/>
        <source>Show Picture Row By Row While Rendering</source>
        <translation>レンダリング中に画像を 1 行ずつ表示</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="53"/>
        <source>Trimming</source>
        <translation>トリミング</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="55"/>
        <source>Trim Rendered Picture</source>
        <translation>レンダリング画像をトリミングする</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="59"/>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="59"/>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="59"/>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="59"/>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="62"/>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="65"/>
        <source>( Default : All 0 )</source>
        <translation>( 初期値 : すべて 0 )</translation>
    </message>
    <message>
        <location filename="../src/ui/general_settings_dialog.cpp" line="66"/>
        <source>Show Trimming Frame In View Panel</source>
        <translation>ビューパネルにトリミング枠を表示</translation>
    </message>
</context>
<context>
    <name>kirameki::GifSettingsDialog</name>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="16"/>
        <source>Make Animated-GIF</source>
        <translation>アニメーションGIFの作成</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="18"/>
        <source>Time-Weight Per Frame.</source>
        <translation>1 フレームの表示時間</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="26"/>
        <source>/ 100 second.</source>
        <translation>/ 100 秒</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="28"/>
        <source>100</source>
        <translation>100</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="32"/>
        <source> make             1 second.</source>
        <translation> で          1 秒になります。</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="37"/>
        <source>Smaller this value gets, Faster the motion flows.</source>
        <translation>値が小さいほど、動きが速くなります。</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="40"/>
        <source>Direction Of Rotation</source>
        <translation>回転の向き</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="42"/>
        <source>Anti Clockwise (&amp;A)</source>
        <translation>反時計回り (&amp;A)</translation>
    </message>
    <message>
        <location filename="../src/ui/gif_settings_dialog.cpp" line="44"/>
        <source>Clockwise (&amp;C)</source>
        <translation>時計回り (&amp;C)</translation>
    </message>
    <message>
        <source>Animated WebP</source>
        <translation>アニメーションWebP</translation>
    </message>
    <message>
        <source>Lossless (&amp;L)</source>
        <translation>可逆圧縮 (&amp;L)</translation>
    </message>
    <message>
        <source>Quality </source>
        <translation>画質 </translation>
    </message>
</context>
<context>
    <name>kirameki::LightArea</name>
    <message>
        <location filename="../src/app/light_area.cpp" line="14"/>
        <source>Drag to turn the light ray</source>
        <translation>ドラッグで光線の向きを変えます</translation>
    </message>
</context>
<context>
    <name>kirameki::LightPerformanceWindow</name>
    <message>
        <source>Light Performance</source>
        <translation>光の性能</translation>
    </message>
    <message>
        <source>Head shadow:</source>
        <translation>頭の影:</translation>
    </message>
    <message>
        <source> deg</source>
        <translation> 度</translation>
    </message>
    <message>
        <source>Tilt up to:</source>
        <translation>傾き最大:</translation>
    </message>
    <message>
        <source>Measure (&amp;M)</source>
        <translation>測定 (&amp;M)</translation>
    </message>
    <message>
        <source>Face-up</source>
        <translation>正面</translation>
    </message>
    <message>
        <source>Tilt average</source>
        <translation>傾きの平均</translation>
    </message>
    <message>
        <source>ISO</source>
        <translation>ISO</translation>
    </message>
    <message>
        <source>COS</source>
        <translation>COS</translation>
    </message>
    <message>
        <source>ASET</source>
        <translation>ASET</translation>
    </message>
    <message>
        <source>Spectral fire</source>
        <translation>分光ファイア</translation>
    </message>
    <message>
        <source>Press Measure to study the stone as it is now.</source>
        <translation>「測定」を押すと、今の石を調べます。</translation>
    </message>
    <message>
        <source>ISO brightness moves by %1 % between face-up, %2 and %3 degrees of tilt.</source>
        <translation>ISO輝度は正面・%2度・%3度の傾きの間で %1 % 変わります。</translation>
    </message>
    <message>
        <source>ISO brightness</source>
        <translation>ISO輝度</translation>
    </message>
    <message>
        <source>COS brightness</source>
        <translation>COS輝度</translation>
    </message>
    <message>
        <source>Leakage</source>
        <translation>光の漏れ</translation>
    </message>
    <message>
        <source>Head shadow</source>
        <translation>頭の影</translation>
    </message>
    <message>
        <source>ASET green (low light)</source>
        <translation>ASET 緑(低い光)</translation>
    </message>
    <message>
        <source>ASET red (45-75 degrees)</source>
        <translation>ASET 赤(45〜75度)</translation>
    </message>
    <message>
        <source>ASET blue (from above)</source>
        <translation>ASET 青(真上から)</translation>
    </message>
    <message>
        <source>ASET black (leakage)</source>
        <translation>ASET 黒(漏れ)</translation>
    </message>
    <message>
        <source>Contrast (dark share)</source>
        <translation>コントラスト(暗い部分)</translation>
    </message>
    <message>
        <source>Fire (saturated share)</source>
        <translation>ファイア(彩度の高い部分)</translation>
    </message>
    <message>
        <source>Mean chroma</source>
        <translation>平均彩度</translation>
    </message>
</context>
<context>
    <name>kirameki::MainWindow</name>
    <message>
        <source>Light Performance... (&amp;P)</source>
        <translation>光の性能... (&amp;P)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="56"/>
        <source>Kirameki</source>
        <translation>Kirameki</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="91"/>
        <source>File(&amp;F)</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="92"/>
        <source>Exit (&amp;X)</source>
        <translation>終了 (&amp;X)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="112"/>
        <source>Ray-Trace (&amp;R)</source>
        <translation>レイトレース (&amp;R)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="115"/>
        <source>Abort Rendering (&amp;A)</source>
        <translation>レンダリングを中止 (&amp;A)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="94"/>
        <source>View(&amp;V)</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="95"/>
        <source>Show Title (&amp;T)</source>
        <translation>タイトルを表示 (&amp;T)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="102"/>
        <source>RenderWnd As TopMost (&amp;R)</source>
        <translation>レンダーウィンドウを最前面に (&amp;R)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="110"/>
        <source>Polygon Color(&amp;C)</source>
        <translation>ポリゴンの色(&amp;C)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="111"/>
        <source>White (&amp;W)</source>
        <translation>白 (&amp;W)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="111"/>
        <source>Red (&amp;R)</source>
        <translation>赤 (&amp;R)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="111"/>
        <source>Green (&amp;G)</source>
        <translation>緑 (&amp;G)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="112"/>
        <source>Blue (&amp;B)</source>
        <translation>青 (&amp;B)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="112"/>
        <source>Yellow (&amp;Y)</source>
        <translation>黄 (&amp;Y)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="112"/>
        <source>Purple (&amp;P)</source>
        <translation>紫 (&amp;P)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="113"/>
        <source>Chocolate (&amp;C)</source>
        <translation>チョコレート (&amp;C)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="113"/>
        <source>Orange (&amp;O)</source>
        <translation>オレンジ (&amp;O)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="128"/>
        <source>Settings(&amp;S)</source>
        <translation>設定(&amp;S)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="129"/>
        <source>BackColor / Light Volume (&amp;L)</source>
        <translation>背景色 / 光量 (&amp;L)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="133"/>
        <source>Size (&amp;Z)</source>
        <translation>サイズ (&amp;Z)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="139"/>
        <source>Transformable Models (&amp;V)</source>
        <translation>可変モデル (&amp;V)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="144"/>
        <source>General Settings (&amp;S)</source>
        <translation>全般設定 (&amp;S)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="148"/>
        <source>Screen Shot(&amp;T)</source>
        <translation>スクリーンショット(&amp;T)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="149"/>
        <source>Save (&amp;S)</source>
        <translation>保存 (&amp;S)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="150"/>
        <source>Restore Position (&amp;R)</source>
        <translation>位置を復元 (&amp;R)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="151"/>
        <source>Automatic Screen Capture(&amp;P)</source>
        <translation>自動スクリーンキャプチャ(&amp;P)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="152"/>
        <source>New (&amp;N)</source>
        <translation>新規 (&amp;N)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="153"/>
        <source>Resume (&amp;R)</source>
        <translation>再開 (&amp;R)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="154"/>
        <source>Make Animated-GIF (&amp;A)</source>
        <translation>アニメーションGIFの作成 (&amp;A)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="155"/>
        <source>About(&amp;A)</source>
        <translation>ヘルプ(&amp;A)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="156"/>
        <source>Version Info. (&amp;V)</source>
        <translation>バージョン情報 (&amp;V)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="164"/>
        <source>Stone</source>
        <translation>石</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="172"/>
        <location filename="../src/app/main_window.cpp" line="290"/>
        <source>stone :</source>
        <translation>石の種類 :</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="174"/>
        <location filename="../src/app/main_window.cpp" line="290"/>
        <source>cut   :</source>
        <translation>カット :</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="176"/>
        <location filename="../src/app/main_window.cpp" line="291"/>
        <source>color :</source>
        <translation>色 :</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="178"/>
        <location filename="../src/app/main_window.cpp" line="292"/>
        <source>ref.idx :</source>
        <translation>屈折率 :</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="183"/>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="191"/>
        <source>Turn around the Y axis</source>
        <translation>Y 軸のまわりに回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="192"/>
        <source>Turn around the Y axis, the other way</source>
        <translation>Y 軸のまわりに逆回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="193"/>
        <source>Turn around the X axis</source>
        <translation>X 軸のまわりに回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="194"/>
        <source>Turn around the X axis, the other way</source>
        <translation>X 軸のまわりに逆回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="195"/>
        <source>Turn around the Z axis</source>
        <translation>Z 軸のまわりに回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="196"/>
        <source>Turn around the Z axis, the other way</source>
        <translation>Z 軸のまわりに逆回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="197"/>
        <source>Turn the light ray around the Y axis</source>
        <translation>光線を Y 軸のまわりに回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="198"/>
        <source>Turn the light ray around the Y axis, the other way</source>
        <translation>光線を Y 軸のまわりに逆回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="199"/>
        <source>Turn the light ray around the X axis</source>
        <translation>光線を X 軸のまわりに回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="200"/>
        <source>Turn the light ray around the X axis, the other way</source>
        <translation>光線を X 軸のまわりに逆回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="216"/>
        <source>Reset View</source>
        <translation>向きをリセット</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="220"/>
        <source>Object-wise</source>
        <translation>物体基準</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="221"/>
        <source>Incremental view</source>
        <translation>視点を逐次回転</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="232"/>
        <source>Ray-Trace</source>
        <translation>レイトレース</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="234"/>
        <source>HQ</source>
        <translation>高画質</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="237"/>
        <source>High quality: render at twice the size and shrink</source>
        <translation>高画質: 2 倍のサイズでレンダリングして縮小します</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="239"/>
        <source>Click to abort the render</source>
        <translation>クリックするとレンダリングを中止します</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="300"/>
        <source>cursor/z,x key</source>
        <translation>カーソル/z,x キー</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="300"/>
        <source>( object-wise )</source>
        <translation>( 物体基準 )</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="300"/>
        <source>rotation around local-</source>
        <translation>回転軸 (ローカル)</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="301"/>
        <source>up/down   : X-axis</source>
        <translation>上/下     : X軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="301"/>
        <source>right/left: Y-axis</source>
        <translation>右/左     : Y軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="301"/>
        <source>z / x     : Z-axis</source>
        <translation>z / x     : Z軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="302"/>
        <location filename="../src/app/main_window.cpp" line="307"/>
        <source>[ light ray ]</source>
        <translation>[ 光線 ]</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="302"/>
        <source>shift + cursor key</source>
        <translation>shift + カーソルキー</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="302"/>
        <source>rotation around-</source>
        <translation>回転軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="303"/>
        <source>sft + up/down   : local X-axis</source>
        <translation>sft + 上/下     : ローカルX軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="303"/>
        <source>    + right/left: global Y-axis</source>
        <translation>    + 右/左     : グローバルY軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="305"/>
        <source>[ view point ]</source>
        <translation>[ 視点 ]</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="305"/>
        <source>rotation around -</source>
        <translation>回転軸</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="305"/>
        <source>local X-axis : up/down</source>
        <translation>ローカルX軸   : 上/下</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="306"/>
        <source>local Y-axis : right/left</source>
        <translation>ローカルY軸   : 右/左</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="306"/>
        <source>local Z-axis : z / x</source>
        <translation>ローカルZ軸   : z / x</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="307"/>
        <source>local X-axis : shift + up/down</source>
        <translation>ローカルX軸   : shift + 上/下</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="308"/>
        <source>global Y-axis : shift + right/left</source>
        <translation>グローバルY軸 : shift + 右/左</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="310"/>
        <source>refractive index*</source>
        <translation>屈折率*</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="310"/>
        <source>diamond  : 2.42</source>
        <translation>ダイアモンド : 2.42</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="311"/>
        <source>vorane   : 1.70 ~1.89</source>
        <translation>ヴォレーン   : 1.70 ~1.89</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="311"/>
        <source>sapphire : 1.76 ~1.77</source>
        <translation>サファイア   : 1.76 ~1.77</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="312"/>
        <source>topaz    : 1.62 ~1.63</source>
        <translation>トパーズ     : 1.62 ~1.63</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="312"/>
        <source>emerald  : 1.57 ~1.58</source>
        <translation>エメラルド   : 1.57 ~1.58</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="313"/>
        <source>crystal  : 1.54 ~1.55</source>
        <translation>クリスタル   : 1.54 ~1.55</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="313"/>
        <source>glass    : 1.42 ~1.56</source>
        <translation>ガラス       : 1.42 ~1.56</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="313"/>
        <source>*refractive index =</source>
        <translation>*屈折率 =</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="314"/>
        <source>{ speed of light in a vacuum</source>
        <translation>{ 真空中の光の速さ</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="314"/>
        <source> / speed of light in medium }</source>
        <translation> / 媒質中の光の速さ }</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="480"/>
        <source>Version Info.</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <location filename="../src/app/main_window.cpp" line="483"/>
        <source>A viewer and ray-tracing renderer for cut gemstones.</source>
        <translation>カットされた宝石のビューアー兼レイトレーシング・レンダラーです。</translation>
    </message>
    <message>
        <source>The design that was open at the last exit cannot be opened again; the cut list&apos;s stone is shown.

%1</source>
        <translation>前回の終了時に開いていたデザインを開けません。カットリストの石を表示します。

%1</translation>
    </message>
    <message>
        <source>Open Design... (&amp;O)</source>
        <translation>デザインを開く... (&amp;O)</translation>
    </message>
    <message>
        <source>Recent Designs (&amp;E)</source>
        <translation>最近のデザイン (&amp;E)</translation>
    </message>
    <message>
        <source>Design (&amp;D)...</source>
        <translation>デザイン (&amp;D)...</translation>
    </message>
    <message>
        <source>Open Design</source>
        <translation>デザインを開く</translation>
    </message>
    <message>
        <source>GemCad Design (*.asc)</source>
        <translation>GemCad デザイン (*.asc)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>The design could not be opened.

%1</source>
        <translation>デザインを開けませんでした。

%1</translation>
    </message>
    <message>
        <source>This design was made for the refractive index %1.

Use it instead of %2?</source>
        <translation>このデザインは屈折率 %1 用に作られています。

%2 の代わりにこの屈折率を使いますか?</translation>
    </message>
    <message>
        <source>The design %1 is no longer there; it was taken off the list.</source>
        <translation>デザイン %1 が見つかりません。一覧から外しました。</translation>
    </message>
    <message>
        <source>Save Cutting Sheet</source>
        <translation>カッティングシートの保存</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
</context>
<context>
    <name>kirameki::ProgressWindow</name>
    <message>
        <location filename="../src/app/progress_window.cpp" line="25"/>
        <source>Abort (&amp;A)</source>
        <translation>中止 (&amp;A)</translation>
    </message>
    <message>
        <location filename="../src/app/progress_window.cpp" line="31"/>
        <source> Click this button to abort capturing process.                You can resume capturing by choosing </source>
        <translation> このボタンをクリックするとキャプチャを中止します。中止したキャプチャは、</translation>
    </message>
    <message>
        <location filename="../src/app/progress_window.cpp" line="33"/>
        <source>Resume(R)</source>
        <translation>「再開(R)」</translation>
    </message>
    <message>
        <location filename="../src/app/progress_window.cpp" line="33"/>
        <source> from </source>
        <translation> (</translation>
    </message>
    <message>
        <location filename="../src/app/progress_window.cpp" line="34"/>
        <source>Automatic Screen Capture(P)</source>
        <translation>「自動スクリーンキャプチャ(P)」</translation>
    </message>
    <message>
        <location filename="../src/app/progress_window.cpp" line="34"/>
        <source> menu.</source>
        <translation>メニュー) で再開できます。</translation>
    </message>
</context>
<context>
    <name>kirameki::RenderWindow</name>
    <message>
        <location filename="../src/app/render_window.cpp" line="12"/>
        <source>Render Window</source>
        <translation>レンダーウィンドウ</translation>
    </message>
    <message>
        <location filename="../src/app/render_window.cpp" line="49"/>
        <source>Screen Shot (&amp;S)</source>
        <translation>スクリーンショット (&amp;S)</translation>
    </message>
    <message>
        <location filename="../src/app/render_window.cpp" line="51"/>
        <source>Cancel (&amp;C)</source>
        <translation>キャンセル (&amp;C)</translation>
    </message>
</context>
<context>
    <name>kirameki::SettingDialog</name>
    <message>
        <location filename="../src/ui/setting_dialog.cpp" line="87"/>
        <source>Only %1 to %2</source>
        <translation>%1 ～ %2 の範囲のみ</translation>
    </message>
    <message>
        <location filename="../src/ui/setting_dialog.cpp" line="29"/>
        <source>Default (&amp;D)</source>
        <translation>初期値 (&amp;D)</translation>
    </message>
    <message>
        <location filename="../src/ui/setting_dialog.cpp" line="32"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../src/ui/setting_dialog.cpp" line="35"/>
        <source>CANCEL</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <location filename="../src/ui/setting_dialog.cpp" line="76"/>
        <source>( %1 - %2 )</source>
        <translation>( %1 - %2 )</translation>
    </message>
</context>
<context>
    <name>kirameki::SizeDialog</name>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="14"/>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="15"/>
        <source>Rendered Image Size</source>
        <translation>レンダリング画像のサイズ</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="17"/>
        <source>Width = Height</source>
        <translation>幅 = 高さ</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="17"/>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="18"/>
        <source>( Default = 270 )</source>
        <translation>( 初期値 = 270 )</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="19"/>
        <source>-&gt; Render Window</source>
        <translation>-&gt; レンダーウィンドウ</translation>
    </message>
    <message>
        <location filename="../src/ui/size_dialog.cpp" line="22"/>
        <source>Render in a separate window at this size.</source>
        <translation>このサイズで別のウィンドウにレンダリングします。</translation>
    </message>
</context>
<context>
    <name>kirameki::TitleWindow</name>
    <message>
        <location filename="../src/app/title_window.cpp" line="12"/>
        <source>Welcome</source>
        <translation>ようこそ</translation>
    </message>
    <message>
        <location filename="../src/app/title_window.cpp" line="18"/>
        <source>A viewer and ray-tracing renderer for cut gemstones.
Choose a stone, turn it, and press Ray-Trace.</source>
        <translation>カットされた宝石のビューアー兼レイトレーシング・レンダラーです。
石を選んで回転させ、「レイトレース」を押してください。</translation>
    </message>
    <message>
        <location filename="../src/app/title_window.cpp" line="23"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>kirameki::TransformableModelsDialog</name>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="26"/>
        <source>Transformable Models</source>
        <translation>可変モデル</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="28"/>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="29"/>
        <source>( Default = %1 )</source>
        <translation>( 初期値 = %1 )</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="35"/>
        <source>Circumferential Surfaces</source>
        <translation>円周方向の面数</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="36"/>
        <source>(number of surfaces in the XZ plane)</source>
        <translation>(XZ 平面内の面の数)</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="37"/>
        <source>Vertical Rows</source>
        <translation>縦方向の段数</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="39"/>
        <source>(number of rows in the XY plane)</source>
        <translation>(XY 平面内の段の数)</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="41"/>
        <source>XZ Diameter Ratio</source>
        <translation>XZ 直径比</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="43"/>
        <source>Length ratio of XZ diameter to that of circumsphere. ( 100% )</source>
        <translation>外接球の直径に対する XZ 直径の比。( 100% )</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="46"/>
        <source>Z Compression Ratio</source>
        <translation>Z 圧縮比</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="47"/>
        <source>Compression ratio of Z height to X width.</source>
        <translation>X 幅に対する Z 高さの圧縮比。</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="49"/>
        <source>Ellipsoid</source>
        <translation>楕円体</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="61"/>
        <source>Prism</source>
        <translation>柱体</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="63"/>
        <source>Pyramid</source>
        <translation>錘体</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="69"/>
        <source>Number Of Base Sides</source>
        <translation>底面の辺の数</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="71"/>
        <source>Height Ratio</source>
        <translation>高さの比</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="75"/>
        <source>Ratio of the height to the diameter of circumsphere.</source>
        <translation>外接球の直径に対する高さの比。</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="82"/>
        <source>Corner Cutting Ratio</source>
        <translation>角の切り取り比</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="86"/>
        <source>Setting the cutting ratio automatically determines the size of the 14 hedron which inscribes the circumsphere.</source>
        <translation>切り取り比を設定すると、外接球に内接する 14面体の大きさが自動的に決まります。</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="89"/>
        <source>14 hedron</source>
        <translation>14面体</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="94"/>
        <source>Side And Corner Cutting Ratio</source>
        <translation>辺と角の切り取り比</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="97"/>
        <source>Setting the cutting ratio automatically determines the size of the 26 hedron which inscribes the circumsphere.</source>
        <translation>切り取り比を設定すると、外接球に内接する 26面体の大きさが自動的に決まります。</translation>
    </message>
    <message>
        <location filename="../src/ui/transformable_models_dialog.cpp" line="100"/>
        <source>26 hedron</source>
        <translation>26面体</translation>
    </message>
</context>
<context>
    <name>CuttingSheet</name>
    <message>
        <source>Length / width</source>
        <translation>長さ / 幅</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>テーブル</translation>
    </message>
    <message>
        <source>Crown height</source>
        <translation>クラウンの高さ</translation>
    </message>
    <message>
        <source>Pavilion depth</source>
        <translation>パビリオンの深さ</translation>
    </message>
    <message>
        <source>Total depth</source>
        <translation>全体の深さ</translation>
    </message>
    <message>
        <source>Girdle thickness</source>
        <translation>ガードルの厚さ</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>体積</translation>
    </message>
    <message>
        <source>Gear %1, offset %2°, symmetry %3%4, refractive index %5</source>
        <translation>インデックスギア %1、オフセット %2°、対称性 %3%4、屈折率 %5</translation>
    </message>
    <message>
        <source> with mirror</source>
        <translation>(鏡像対称あり)</translation>
    </message>
    <message>
        <source>not given</source>
        <translation>指定なし</translation>
    </message>
    <message>
        <source>Crown</source>
        <translation>クラウン</translation>
    </message>
    <message>
        <source>Pavilion</source>
        <translation>パビリオン</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>側面</translation>
    </message>
    <message>
        <source>Tier</source>
        <translation>段</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Indices</source>
        <translation>インデックス</translation>
    </message>
    <message>
        <source>Instruction</source>
        <translation>指示</translation>
    </message>
    <message>
        <source>(does not touch the stone)</source>
        <translation>(石に接しない)</translation>
    </message>
    <message>
        <source>Proportions (of the width)</source>
        <translation>プロポーション (幅に対する比)</translation>
    </message>
</context>
<context>
    <name>kirameki::DesignWindow</name>
    <message>
        <source>Design</source>
        <translation>デザイン</translation>
    </message>
    <message>
        <source>Tier</source>
        <translation>段</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Indices</source>
        <translation>インデックス</translation>
    </message>
    <message>
        <source>Instruction</source>
        <translation>指示</translation>
    </message>
    <message>
        <source>Save PDF...</source>
        <translation>PDF を保存...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>This tier does not touch the stone.</source>
        <translation>この段は石に接しません。</translation>
    </message>
    <message>
        <source>Proportions (of the width)</source>
        <translation>プロポーション (幅に対する比)</translation>
    </message>
    <message>
        <source>The cutting sheet could not be saved.

%1</source>
        <translation>カッティングシートを保存できませんでした。

%1</translation>
    </message>
    <message>
        <source>The cutting sheet was saved.

%1</source>
        <translation>カッティングシートを保存しました。

%1</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Views cut gemstones and ray-traces their sparkle.</source>
        <translation>カットされた宝石を表示し、その輝きをレイトレースします。</translation>
    </message>
    <message>
        <source>A faceting design to open.</source>
        <translation>開くファセットデザイン。</translation>
    </message>
    <message>
        <source>Only one design can be opened at a time.</source>
        <translation>一度に開けるデザインは一つだけです。</translation>
    </message>
</context>
</TS>
