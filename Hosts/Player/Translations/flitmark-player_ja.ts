<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>CommentBar</name>
    <message>
        <source>Comment style</source>
        <translation>コメントのスタイル</translation>
    </message>
    <message>
        <source>Position, size and color of your comments</source>
        <translation>自分のコメントの位置・サイズ・色</translation>
    </message>
    <message>
        <source>A</source>
        <comment>a letter, for the style of comments</comment>
        <translation>A</translation>
    </message>
    <message>
        <source>Send a comment</source>
        <translation>コメントを入力</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>送信</translation>
    </message>
    <message>
        <source>Send the comment</source>
        <translation>コメントを送信</translation>
    </message>
    <message>
        <source>Send (Enter)</source>
        <translation>送信（Enter）</translation>
    </message>
    <message>
        <source>Open a video to send comments</source>
        <translation>コメントを送るには動画を開いてください</translation>
    </message>
</context>
<context>
    <name>CommentPreview</name>
    <message>
        <source>Your comments look like this</source>
        <translation>コメントの表示例</translation>
    </message>
</context>
<context>
    <name>CommentSwitch</name>
    <message>
        <source>Hide comments</source>
        <translation>コメントを隠す</translation>
    </message>
    <message>
        <source>Show comments</source>
        <translation>コメントを表示</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>すべて選択</translation>
    </message>
</context>
<context>
    <name>Flitmark::FCommentSession</name>
    <message>
        <source>comments have to be in a file. Download them first.</source>
        <translation>コメントはファイルからのみ読み込めます。先にダウンロードしてください。</translation>
    </message>
    <message>
        <source>Can&apos;t read %1: %2</source>
        <translation>%1を読み込めません：%2</translation>
    </message>
    <message>
        <source>1 comment</source>
        <translation>コメント1件</translation>
    </message>
    <message>
        <source>%L1 comments</source>
        <translation>コメント%L1件</translation>
    </message>
</context>
<context>
    <name>Flitmark::FPlayer</name>
    <message>
        <source>Playing</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Next frame</source>
        <translation>次のフレーム</translation>
    </message>
    <message>
        <source>Previous frame</source>
        <translation>前のフレーム</translation>
    </message>
    <message>
        <source>Speed %1</source>
        <translation>速度 %1</translation>
    </message>
    <message>
        <source>Volume %1%</source>
        <translation>音量 %1%</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Unmuted</source>
        <translation>ミュート解除</translation>
    </message>
    <message>
        <source>Can&apos;t play %1: %2</source>
        <translation>%1を再生できません：%2</translation>
    </message>
    <message>
        <source>Open a video to see them.</source>
        <translation>動画を開くと表示されます。</translation>
    </message>
    <message>
        <source>Can&apos;t show the video: %1.</source>
        <translation>映像を表示できません：%1。</translation>
    </message>
    <message>
        <source>Some comments can&apos;t be drawn in full: they are too large, or there are too many.</source>
        <translation>大きすぎるか多すぎるため、一部のコメントを完全には表示できません。</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>%1 を開いています…</translation>
    </message>
    <message>
        <source>open a video first; subtitles belong to one.</source>
        <translation>先に動画を開いてください。字幕は動画に付くものです。</translation>
    </message>
    <message>
        <source>Can&apos;t show the subtitles %1: %2</source>
        <translation>字幕 %1 を表示できません：%2</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>字幕：%1</translation>
    </message>
    <message>
        <source>the format is unknown, or the file is damaged.</source>
        <translation>形式が不明か、ファイルが壊れています。</translation>
    </message>
</context>
<context>
    <name>Flitmark::FPreferences</name>
    <message>
        <source>Couldn&apos;t save your settings: %1.</source>
        <translation>設定を保存できませんでした：%1。</translation>
    </message>
</context>
<context>
    <name>Flitmark::FScreenSaver</name>
    <message>
        <source>A video is playing</source>
        <translation>動画を再生しています</translation>
    </message>
</context>
<context>
    <name>Flitmark::FileMessages</name>
    <message>
        <source>entry %1: %2</source>
        <translation>%1 番目：%2</translation>
    </message>
    <message>
        <source>%1 entry is broken and left out</source>
        <translation>%1 件は壊れているため省きました</translation>
    </message>
    <message>
        <source>%1 entries are broken and left out</source>
        <translation>%1 件は壊れているため省きました</translation>
    </message>
    <message>
        <source>%1 comment is damaged, but could be used</source>
        <translation>%1 件のコメントは破損していますが使えました</translation>
    </message>
    <message>
        <source>%1 comments are damaged, but could be used</source>
        <translation>%1 件のコメントは破損していますが使えました</translation>
    </message>
    <message>
        <source>%1 entry is no comment for viewers and not shown: %2</source>
        <translation>%1 件は視聴者向けのコメントではないため表示しません：%2</translation>
    </message>
    <message>
        <source>%1 entries are no comments for viewers and not shown: %2</source>
        <translation>%1 件は視聴者向けのコメントではないため表示しません：%2</translation>
    </message>
    <message>
        <source>%1 comment is not served: %2</source>
        <translation>%1 件のコメントは表示できません：%2</translation>
    </message>
    <message>
        <source>%1 comments are not served: %2</source>
        <translation>%1 件のコメントは表示できません：%2</translation>
    </message>
    <message>
        <source>shown otherwise than meant: %1</source>
        <translation>本来と異なる形で表示：%1</translation>
    </message>
    <message>
        <source>%1 comment is left out, because more than %2 come in the same second</source>
        <translation>同じ秒に %2 件を超えるため %1 件のコメントを省きました</translation>
    </message>
    <message>
        <source>%1 comments are left out, because more than %2 come in the same second</source>
        <translation>同じ秒に %2 件を超えるため %1 件のコメントを省きました</translation>
    </message>
    <message>
        <source>%1 from left to right</source>
        <translation>左から右へ流れるもの %1 件</translation>
    </message>
    <message>
        <source>%1 positioned</source>
        <translation>位置指定 %1 件</translation>
    </message>
    <message>
        <source>%1 pieces of positioned drawings</source>
        <translation>位置指定の絵の一部 %1 件</translation>
    </message>
    <message>
        <source>%1 that draw by a program</source>
        <translation>プログラムで描くもの %1 件</translation>
    </message>
    <message>
        <source>%1 paid</source>
        <translation>有料 %1 件</translation>
    </message>
    <message>
        <source>%1 of unknown kinds</source>
        <translation>種類不明 %1 件</translation>
    </message>
    <message>
        <source>%1 from left to right, which scroll</source>
        <translation>左から右のもの %1 件（通常どおり流れます）</translation>
    </message>
    <message>
        <source>%1 positioned, which stand at the top</source>
        <translation>位置指定 %1 件（上に固定します）</translation>
    </message>
    <message>
        <source>%1 paid, which stand at the top</source>
        <translation>有料 %1 件（上に固定します）</translation>
    </message>
    <message>
        <source>%1 pictures within texts, of which the names are shown</source>
        <translation>文中の画像 %1 件（名前を表示します）</translation>
    </message>
    <message>
        <source>%1 of many lines, which are made smaller to fit</source>
        <translation>行の多いもの %1 件（収まるよう縮小します）</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>ファイルではなくフォルダーです</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>空です</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>開けません：%1</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>読み取れません：%1</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1 に書き込めません：%2</translation>
    </message>
    <message>
        <source>is larger than 2 GiB, which is more than can be read</source>
        <translation>2 GiB を超えているため読み取れません</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>権限がありません</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>ファイルまたはフォルダーがありません</translation>
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
        <source>Read-only file system</source>
        <translation>読み取り専用のファイルシステムです</translation>
    </message>
    <message>
        <source>cannot be unpacked: there is not enough memory</source>
        <translation>メモリーが足りないため展開できません</translation>
    </message>
    <message>
        <source>its compressed data is damaged: everything after the damage is lost</source>
        <translation>圧縮データが壊れています。それ以降は失われました</translation>
    </message>
    <message>
        <source>its compressed data ends early: everything after its end is lost</source>
        <translation>圧縮データが途中で終わっています。それ以降は失われました</translation>
    </message>
    <message>
        <source>is in no known format of comments; these are known: %1</source>
        <translation>知られているコメント形式ではありません。対応形式：%1</translation>
    </message>
    <message>
        <source>has nothing but blanks at its beginning</source>
        <translation>先頭に空白しかありません</translation>
    </message>
    <message>
        <source>begins with nothing but zeros: it is damaged, or was never written; get it anew</source>
        <translation>先頭がゼロばかりです。壊れているか、書き込まれていません。入手し直してください</translation>
    </message>
    <message>
        <source>is %1, not comments</source>
        <translation>コメントではありません（%1）</translation>
    </message>
    <message>
        <source>is %1; unpack it first</source>
        <translation>先に展開してください（%1）</translation>
    </message>
    <message>
        <source>is JSON, or looks like it, but in no known form of comments</source>
        <translation>JSON のようですが、知られているコメントの形ではありません</translation>
    </message>
    <message>
        <source>is JSON, but in no known form of comments; it has %1</source>
        <translation>JSON ですが、知られているコメントの形ではありません（%1）</translation>
    </message>
    <message>
        <source>is JSON with no comments in it: its list &quot;%1&quot; is empty</source>
        <translation>JSON ですがコメントがありません。リスト「%1」は空です</translation>
    </message>
    <message>
        <source>is JSON that looks like %1; that is not read</source>
        <translation>JSON（%1）のようですが、これは読み取れません</translation>
    </message>
    <message>
        <source>not JSON: %1</source>
        <translation>JSON ではありません（%1）</translation>
    </message>
    <message>
        <source>it has no list of comments named &quot;datas&quot;</source>
        <translation>「datas」というコメントのリストがありません</translation>
    </message>
    <message>
        <source>its &quot;datas&quot; is not a list of comments</source>
        <translation>「datas」がコメントのリストではありません</translation>
    </message>
    <message>
        <source>the file ends early: closing brackets are missing, and comments before them may be too</source>
        <translation>ファイルが途中で終わっています。閉じ括弧がなく、その前のコメントも欠けているかもしれません</translation>
    </message>
    <message>
        <source>the file ends early: its last end tag is missing, and perhaps comments before it</source>
        <translation>ファイルが途中で終わっています。最後の終了タグがなく、その前のコメントも欠けているかもしれません</translation>
    </message>
    <message>
        <source>the file ends in the middle of this entry</source>
        <translation>ファイルがこの項目の途中で終わっています</translation>
    </message>
    <message>
        <source>is a bare value, not a comment</source>
        <translation>単なる値で、コメントではありません</translation>
    </message>
    <message>
        <source>has no text</source>
        <translation>テキストがありません</translation>
    </message>
    <message>
        <source>is damaged, and no text can be read</source>
        <translation>壊れていて、テキストを読み取れません</translation>
    </message>
    <message>
        <source>is damaged; everything before the damage was read</source>
        <translation>壊れています。それより前は読み取りました</translation>
    </message>
    <message>
        <source>its end tag is missing; it was read up to the next element</source>
        <translation>終了タグがありません。次の要素まで読み取りました</translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation>%1 を開けませんでした</translation>
    </message>
    <message>
        <source>HTTP error %1</source>
        <translation>HTTP エラー %1</translation>
    </message>
    <message>
        <source>loading failed</source>
        <translation>読み込みに失敗しました</translation>
    </message>
    <message>
        <source>its text contains characters that JSON does not allow; they were repaired</source>
        <translation>テキストに JSON で許されない文字があり、修復しました</translation>
    </message>
    <message>
        <source>has no end</source>
        <translation>終わりがありません</translation>
    </message>
    <message>
        <source>has no readable time at the start of its attribute &quot;%1&quot;</source>
        <translation>属性「%1」の先頭に読み取れる時刻がありません</translation>
    </message>
    <message>
        <source>has no readable time in its attribute &quot;%1&quot;</source>
        <translation>属性「%1」に読み取れる時刻がありません</translation>
    </message>
    <message>
        <source>has no readable time</source>
        <translation>読み取れる時刻がありません</translation>
    </message>
    <message>
        <source>has no readable &quot;%1&quot;</source>
        <translation>読み取れる「%1」がありません</translation>
    </message>
    <message>
        <source>has an impossible length; the rest of the file cannot be read</source>
        <translation>長さがあり得ません。ファイルの残りは読み取れません</translation>
    </message>
    <message>
        <source>is not a message field; the rest of the file cannot be read</source>
        <translation>メッセージのフィールドではありません。ファイルの残りは読み取れません</translation>
    </message>
</context>
<context>
    <name>Flitmark::MediaPaths</name>
    <message>
        <source>no such file. Was it moved or renamed?</source>
        <translation>ファイルが見つかりません。移動されたか、名前が変更された可能性があります。</translation>
    </message>
    <message>
        <source>it&apos;s a folder. Choose a file in it.</source>
        <translation>フォルダーです。中のファイルを選んでください。</translation>
    </message>
    <message>
        <source>you don&apos;t have permission to read it. Change the file&apos;s permissions.</source>
        <translation>読み取る権限がありません。ファイルのアクセス権を変更してください。</translation>
    </message>
    <message>
        <source>the file is empty. Was it copied completely?</source>
        <translation>ファイルが空です。最後までコピーされているか確認してください。</translation>
    </message>
</context>
<context>
    <name>Flitmark::PlayerText</name>
    <message>
        <source>the format is unknown, or the file is damaged.</source>
        <translation>対応していない形式か、ファイルが壊れています。</translation>
    </message>
    <message>
        <source>it has no video or audio that can be decoded.</source>
        <translation>デコードできる映像も音声もありません。</translation>
    </message>
    <message>
        <source>Check the address and the connection.</source>
        <translation>アドレスと接続を確認してください。</translation>
    </message>
</context>
<context>
    <name>KeyboardPage</name>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Open a video</source>
        <translation>動画を開く</translation>
    </message>
    <message>
        <source>Videos (%1)</source>
        <translation>動画 (%1)</translation>
    </message>
    <message>
        <source>All files (%1)</source>
        <translation>すべてのファイル (%1)</translation>
    </message>
    <message>
        <source>Open comments</source>
        <translation>コメントを開く</translation>
    </message>
    <message>
        <source>Comments (%1)</source>
        <translation>コメント (%1)</translation>
    </message>
    <message>
        <source>Drop a video, comments, or subtitles</source>
        <translation>動画、コメント、字幕をドロップ</translation>
    </message>
</context>
<context>
    <name>MessageCards</name>
    <message>
        <source>Dismiss</source>
        <translation>メッセージを閉じる</translation>
    </message>
</context>
<context>
    <name>OpenMenu</name>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Open video…</source>
        <translation>動画を開く…</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Ctrl+Shift+O</translation>
    </message>
    <message>
        <source>Open comments…</source>
        <translation>コメントを開く…</translation>
    </message>
</context>
<context>
    <name>PlayerButton</name>
    <message>
        <source>%1 (%2)</source>
        <comment>what a button does, and its key</comment>
        <translation>%1（%2）</translation>
    </message>
</context>
<context>
    <name>SeekBar</name>
    <message>
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Show comments</source>
        <translation>コメントを表示</translation>
    </message>
    <message>
        <source>Size of your comments</source>
        <translation>自分のコメントの文字サイズ</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>Speed of all comments</source>
        <translation>全コメントの速度</translation>
    </message>
    <message>
        <source>%1×</source>
        <translation>%1×</translation>
    </message>
    <message>
        <source>Reset to defaults</source>
        <translation>初期設定に戻す</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Stay in the field after sending</source>
        <translation>送信後も入力欄にとどまる</translation>
    </message>
    <message>
        <source>Scrolling comments</source>
        <translation>スクロールするコメント</translation>
    </message>
    <message>
        <source>Comments at the top</source>
        <translation>上に固定のコメント</translation>
    </message>
    <message>
        <source>Comments at the bottom</source>
        <translation>下に固定のコメント</translation>
    </message>
    <message>
        <source>Part of the picture</source>
        <translation>表示する範囲</translation>
    </message>
    <message>
        <source>a quarter</source>
        <translation>4分の1</translation>
    </message>
    <message>
        <source>half</source>
        <translation>半分</translation>
    </message>
    <message>
        <source>three quarters</source>
        <translation>4分の3</translation>
    </message>
    <message>
        <source>all of it</source>
        <translation>全体</translation>
    </message>
    <message>
        <source>Opacity of all comments</source>
        <translation>全コメントの不透明度</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Size of all comments</source>
        <translation>全コメントの大きさ</translation>
    </message>
    <message>
        <source>Comments come later by</source>
        <translation>コメントを遅らせる時間</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Playback</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>再生・一時停止</translation>
    </message>
    <message>
        <source>Back or forward 5 seconds</source>
        <translation>5秒戻る・進む</translation>
    </message>
    <message>
        <source>Back or forward 1 second</source>
        <translation>1秒戻る・進む</translation>
    </message>
    <message>
        <source>Back or forward 30 seconds</source>
        <translation>30秒戻る・進む</translation>
    </message>
    <message>
        <source>Previous or next frame</source>
        <translation>前・次のフレーム</translation>
    </message>
    <message>
        <source>Start or end</source>
        <translation>先頭・末尾</translation>
    </message>
    <message>
        <source>Jump to 0% … 90%</source>
        <translation>0%〜90%の位置へ</translation>
    </message>
    <message>
        <source>Slower or faster</source>
        <translation>遅く・速く</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>標準速度</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>音声</translation>
    </message>
    <message>
        <source>Volume up or down</source>
        <translation>音量を上げる・下げる</translation>
    </message>
    <message>
        <source>Mute or unmute</source>
        <translation>ミュート・解除</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Show or hide comments</source>
        <translation>コメントの表示・非表示</translation>
    </message>
    <message>
        <source>Write a comment</source>
        <translation>コメントを書く</translation>
    </message>
    <message>
        <source>Open comments</source>
        <translation>コメントを開く</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>Open a video</source>
        <translation>動画を開く</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全画面</translation>
    </message>
    <message>
        <source>Close a page, exit full screen</source>
        <translation>ページを閉じる・全画面を終了</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>統計情報</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Open a video</source>
        <translation>動画を開く</translation>
    </message>
    <message>
        <source>or drop one here, along with a comment file if you have one.</source>
        <translation>または、ここにドロップ（コメントファイルと一緒でも可）</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>開く…</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>最近再生した動画</translation>
    </message>
    <message>
        <source>%1, not found</source>
        <translation>%1（見つかりません）</translation>
    </message>
    <message>
        <source>No longer in %1</source>
        <translation>%1 にはもうありません</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>一覧から削除</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
</context>
<context>
    <name>StatisticsCard</name>
    <message>
        <source>%1 MiB</source>
        <translation>%1 MiB</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>フレーム毎秒</translation>
    </message>
    <message>
        <source>Frame time, average</source>
        <translation>平均フレーム時間</translation>
    </message>
    <message>
        <source>Frame time, worst in 5 s</source>
        <translation>5秒間の最長フレーム時間</translation>
    </message>
    <message>
        <source>Comments on screen</source>
        <translation>表示中のコメント</translation>
    </message>
    <message>
        <source>Sprites made</source>
        <translation>作成した文字画像</translation>
    </message>
    <message>
        <source>Sprites waiting</source>
        <translation>待機中の文字画像</translation>
    </message>
    <message>
        <source>Texture memory</source>
        <translation>テクスチャメモリ</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>解像度</translation>
    </message>
    <message>
        <source>Decoder</source>
        <translation>デコーダー</translation>
    </message>
    <message>
        <source>software</source>
        <translation>ソフトウェア</translation>
    </message>
</context>
<context>
    <name>StylePanel</name>
    <message>
        <source>Scrolling</source>
        <translation>流れる</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>小</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白</translation>
    </message>
    <message>
        <source>Comment style</source>
        <translation>コメントのスタイル</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>A</source>
        <comment>a letter in the size of the comment</comment>
        <translation>A</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Color, as six hex digits</source>
        <translation>色（16進数6桁）</translation>
    </message>
</context>
<context>
    <name>Transport</name>
    <message>
        <source>Play again</source>
        <translation>もう一度再生</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>ミュート解除</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Loading comments…</source>
        <translation>コメントを読み込み中…</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>再生速度</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Ctrl+,</source>
        <translation>Ctrl+,</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Exit full screen</source>
        <translation>全画面を終了</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全画面</translation>
    </message>
</context>
</TS>
