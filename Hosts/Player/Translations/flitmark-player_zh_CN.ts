<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CommentBar</name>
    <message>
        <source>Comment style</source>
        <translation>弹幕样式</translation>
    </message>
    <message>
        <source>Position, size and color of your comments</source>
        <translation>你发送的弹幕的位置、大小和颜色</translation>
    </message>
    <message>
        <source>A</source>
        <comment>a letter, for the style of comments</comment>
        <translation>A</translation>
    </message>
    <message>
        <source>Send a comment</source>
        <translation>发一条弹幕</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>弹幕</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Send the comment</source>
        <translation>发送弹幕</translation>
    </message>
    <message>
        <source>Send (Enter)</source>
        <translation>发送（Enter）</translation>
    </message>
    <message>
        <source>Open a video to send comments</source>
        <translation>打开视频后即可发送弹幕</translation>
    </message>
</context>
<context>
    <name>CommentPreview</name>
    <message>
        <source>Your comments look like this</source>
        <translation>弹幕效果预览</translation>
    </message>
</context>
<context>
    <name>CommentSwitch</name>
    <message>
        <source>Hide comments</source>
        <translation>隐藏弹幕</translation>
    </message>
    <message>
        <source>Show comments</source>
        <translation>显示弹幕</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
</context>
<context>
    <name>Flitmark::FCommentSession</name>
    <message>
        <source>comments have to be in a file. Download them first.</source>
        <translation>弹幕只能从文件读取，请先下载。</translation>
    </message>
    <message>
        <source>Can&apos;t read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>1 comment</source>
        <translation>1 条弹幕</translation>
    </message>
    <message>
        <source>%L1 comments</source>
        <translation>%L1 条弹幕</translation>
    </message>
</context>
<context>
    <name>Flitmark::FPlayer</name>
    <message>
        <source>Playing</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Next frame</source>
        <translation>下一帧</translation>
    </message>
    <message>
        <source>Previous frame</source>
        <translation>上一帧</translation>
    </message>
    <message>
        <source>Speed %1</source>
        <translation>倍速 %1</translation>
    </message>
    <message>
        <source>Volume %1%</source>
        <translation>音量 %1%</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>已静音</translation>
    </message>
    <message>
        <source>Unmuted</source>
        <translation>取消静音</translation>
    </message>
    <message>
        <source>Can&apos;t play %1: %2</source>
        <translation>无法播放 %1：%2</translation>
    </message>
    <message>
        <source>Open a video to see them.</source>
        <translation>打开视频即可观看。</translation>
    </message>
    <message>
        <source>Can&apos;t show the video: %1.</source>
        <translation>无法显示画面：%1。</translation>
    </message>
    <message>
        <source>Some comments can&apos;t be drawn in full: they are too large, or there are too many.</source>
        <translation>部分弹幕过大或过多，无法完整显示。</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>正在打开 %1…</translation>
    </message>
    <message>
        <source>open a video first; subtitles belong to one.</source>
        <translation>请先打开视频；字幕属于视频。</translation>
    </message>
    <message>
        <source>Can&apos;t show the subtitles %1: %2</source>
        <translation>无法显示字幕 %1：%2</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>字幕：%1</translation>
    </message>
    <message>
        <source>the format is unknown, or the file is damaged.</source>
        <translation>格式未知，或文件已损坏。</translation>
    </message>
</context>
<context>
    <name>Flitmark::FPreferences</name>
    <message>
        <source>Couldn&apos;t save your settings: %1.</source>
        <translation>设置无法保存：%1。</translation>
    </message>
</context>
<context>
    <name>Flitmark::FScreenSaver</name>
    <message>
        <source>A video is playing</source>
        <translation>正在播放视频</translation>
    </message>
</context>
<context>
    <name>Flitmark::FileMessages</name>
    <message>
        <source>entry %1: %2</source>
        <translation>第 %1 条：%2</translation>
    </message>
    <message>
        <source>%1 entry is broken and left out</source>
        <translation>%1 条已损坏，已略去</translation>
    </message>
    <message>
        <source>%1 entries are broken and left out</source>
        <translation>%1 条已损坏，已略去</translation>
    </message>
    <message>
        <source>%1 comment is damaged, but could be used</source>
        <translation>%1 条弹幕有损坏，但仍可用</translation>
    </message>
    <message>
        <source>%1 comments are damaged, but could be used</source>
        <translation>%1 条弹幕有损坏，但仍可用</translation>
    </message>
    <message>
        <source>%1 entry is no comment for viewers and not shown: %2</source>
        <translation>%1 条不是给观众看的弹幕，不显示：%2</translation>
    </message>
    <message>
        <source>%1 entries are no comments for viewers and not shown: %2</source>
        <translation>%1 条不是给观众看的弹幕，不显示：%2</translation>
    </message>
    <message>
        <source>%1 comment is not served: %2</source>
        <translation>%1 条弹幕无法显示：%2</translation>
    </message>
    <message>
        <source>%1 comments are not served: %2</source>
        <translation>%1 条弹幕无法显示：%2</translation>
    </message>
    <message>
        <source>shown otherwise than meant: %1</source>
        <translation>显示方式与原意不同：%1</translation>
    </message>
    <message>
        <source>%1 comment is left out, because more than %2 come in the same second</source>
        <translation>同一秒内超过 %2 条，略去 %1 条弹幕</translation>
    </message>
    <message>
        <source>%1 comments are left out, because more than %2 come in the same second</source>
        <translation>同一秒内超过 %2 条，略去 %1 条弹幕</translation>
    </message>
    <message>
        <source>%1 from left to right</source>
        <translation>从左向右 %1 条</translation>
    </message>
    <message>
        <source>%1 positioned</source>
        <translation>定位 %1 条</translation>
    </message>
    <message>
        <source>%1 pieces of positioned drawings</source>
        <translation>定位图画的部件 %1 条</translation>
    </message>
    <message>
        <source>%1 that draw by a program</source>
        <translation>用程序绘制的 %1 条</translation>
    </message>
    <message>
        <source>%1 paid</source>
        <translation>付费 %1 条</translation>
    </message>
    <message>
        <source>%1 of unknown kinds</source>
        <translation>未知类型 %1 条</translation>
    </message>
    <message>
        <source>%1 from left to right, which scroll</source>
        <translation>从左向右 %1 条（改为滚动）</translation>
    </message>
    <message>
        <source>%1 positioned, which stand at the top</source>
        <translation>定位 %1 条（固定在顶部）</translation>
    </message>
    <message>
        <source>%1 paid, which stand at the top</source>
        <translation>付费 %1 条（固定在顶部）</translation>
    </message>
    <message>
        <source>%1 pictures within texts, of which the names are shown</source>
        <translation>文中图片 %1 个（显示其名称）</translation>
    </message>
    <message>
        <source>%1 of many lines, which are made smaller to fit</source>
        <translation>行数过多 %1 条（缩小以适应）</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>这是文件夹，不是文件</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>文件是空的</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>is larger than 2 GiB, which is more than can be read</source>
        <translation>超过 2 GiB，无法读取</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>没有权限</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>没有这样的文件或文件夹</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入输出错误</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>磁盘空间不足</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>文件系统是只读的</translation>
    </message>
    <message>
        <source>cannot be unpacked: there is not enough memory</source>
        <translation>内存不足，无法解压</translation>
    </message>
    <message>
        <source>its compressed data is damaged: everything after the damage is lost</source>
        <translation>压缩数据已损坏：损坏处之后的内容全部丢失</translation>
    </message>
    <message>
        <source>its compressed data ends early: everything after its end is lost</source>
        <translation>压缩数据提前结束：其后的内容全部丢失</translation>
    </message>
    <message>
        <source>is in no known format of comments; these are known: %1</source>
        <translation>不是已知的弹幕格式；已知的格式有：%1</translation>
    </message>
    <message>
        <source>has nothing but blanks at its beginning</source>
        <translation>开头只有空白</translation>
    </message>
    <message>
        <source>begins with nothing but zeros: it is damaged, or was never written; get it anew</source>
        <translation>开头全是零：文件已损坏或从未写入；请重新获取</translation>
    </message>
    <message>
        <source>is %1, not comments</source>
        <translation>不是弹幕（%1）</translation>
    </message>
    <message>
        <source>is %1; unpack it first</source>
        <translation>请先解压（%1）</translation>
    </message>
    <message>
        <source>is JSON, or looks like it, but in no known form of comments</source>
        <translation>是 JSON 或类似 JSON，但不是已知的弹幕形式</translation>
    </message>
    <message>
        <source>is JSON, but in no known form of comments; it has %1</source>
        <translation>是 JSON，但不是已知的弹幕形式（%1）</translation>
    </message>
    <message>
        <source>is JSON with no comments in it: its list &quot;%1&quot; is empty</source>
        <translation>是 JSON，但没有弹幕：列表“%1”是空的</translation>
    </message>
    <message>
        <source>is JSON that looks like %1; that is not read</source>
        <translation>是类似 %1 的 JSON，无法读取</translation>
    </message>
    <message>
        <source>not JSON: %1</source>
        <translation>不是 JSON（%1）</translation>
    </message>
    <message>
        <source>it has no list of comments named &quot;datas&quot;</source>
        <translation>没有名为“datas”的弹幕列表</translation>
    </message>
    <message>
        <source>its &quot;datas&quot; is not a list of comments</source>
        <translation>“datas”不是弹幕列表</translation>
    </message>
    <message>
        <source>the file ends early: closing brackets are missing, and comments before them may be too</source>
        <translation>文件提前结束：缺少右括号，之前的弹幕也可能缺失</translation>
    </message>
    <message>
        <source>the file ends early: its last end tag is missing, and perhaps comments before it</source>
        <translation>文件提前结束：缺少最后的结束标签，之前的弹幕也可能缺失</translation>
    </message>
    <message>
        <source>the file ends in the middle of this entry</source>
        <translation>文件在这一条的中间结束</translation>
    </message>
    <message>
        <source>is a bare value, not a comment</source>
        <translation>只是一个值，不是弹幕</translation>
    </message>
    <message>
        <source>has no text</source>
        <translation>没有文字</translation>
    </message>
    <message>
        <source>is damaged, and no text can be read</source>
        <translation>已损坏，读不出文字</translation>
    </message>
    <message>
        <source>is damaged; everything before the damage was read</source>
        <translation>已损坏；损坏处之前的内容已读取</translation>
    </message>
    <message>
        <source>its end tag is missing; it was read up to the next element</source>
        <translation>缺少结束标签；已读到下一个元素</translation>
    </message>
    <message>
        <source>Failed to open %1</source>
        <translation>无法打开 %1</translation>
    </message>
    <message>
        <source>HTTP error %1</source>
        <translation>HTTP 错误 %1</translation>
    </message>
    <message>
        <source>loading failed</source>
        <translation>加载失败</translation>
    </message>
    <message>
        <source>its text contains characters that JSON does not allow; they were repaired</source>
        <translation>文字中有 JSON 不允许的字符，已修复</translation>
    </message>
    <message>
        <source>has no end</source>
        <translation>没有结尾</translation>
    </message>
    <message>
        <source>has no readable time at the start of its attribute &quot;%1&quot;</source>
        <translation>属性“%1”的开头没有可读的时间</translation>
    </message>
    <message>
        <source>has no readable time in its attribute &quot;%1&quot;</source>
        <translation>属性“%1”中没有可读的时间</translation>
    </message>
    <message>
        <source>has no readable time</source>
        <translation>没有可读的时间</translation>
    </message>
    <message>
        <source>has no readable &quot;%1&quot;</source>
        <translation>没有可读的“%1”</translation>
    </message>
    <message>
        <source>has an impossible length; the rest of the file cannot be read</source>
        <translation>长度不可能；文件其余部分无法读取</translation>
    </message>
    <message>
        <source>is not a message field; the rest of the file cannot be read</source>
        <translation>不是消息字段；文件其余部分无法读取</translation>
    </message>
</context>
<context>
    <name>Flitmark::MediaPaths</name>
    <message>
        <source>no such file. Was it moved or renamed?</source>
        <translation>文件不存在。是否已被移动或重命名？</translation>
    </message>
    <message>
        <source>it&apos;s a folder. Choose a file in it.</source>
        <translation>这是一个文件夹，请选择其中的文件。</translation>
    </message>
    <message>
        <source>you don&apos;t have permission to read it. Change the file&apos;s permissions.</source>
        <translation>没有读取权限，请更改该文件的权限。</translation>
    </message>
    <message>
        <source>the file is empty. Was it copied completely?</source>
        <translation>文件是空的。是否已完整复制？</translation>
    </message>
</context>
<context>
    <name>Flitmark::PlayerText</name>
    <message>
        <source>the format is unknown, or the file is damaged.</source>
        <translation>格式无法识别，或文件已损坏。</translation>
    </message>
    <message>
        <source>it has no video or audio that can be decoded.</source>
        <translation>其中没有可解码的视频或音频。</translation>
    </message>
    <message>
        <source>Check the address and the connection.</source>
        <translation>请检查地址和网络连接。</translation>
    </message>
</context>
<context>
    <name>KeyboardPage</name>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>退格</translation>
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
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Open a video</source>
        <translation>打开视频</translation>
    </message>
    <message>
        <source>Videos (%1)</source>
        <translation>视频 (%1)</translation>
    </message>
    <message>
        <source>All files (%1)</source>
        <translation>所有文件 (%1)</translation>
    </message>
    <message>
        <source>Open comments</source>
        <translation>打开弹幕</translation>
    </message>
    <message>
        <source>Comments (%1)</source>
        <translation>弹幕 (%1)</translation>
    </message>
    <message>
        <source>Drop a video, comments, or subtitles</source>
        <translation>拖放视频、弹幕或字幕</translation>
    </message>
</context>
<context>
    <name>MessageCards</name>
    <message>
        <source>Dismiss</source>
        <translation>关闭消息</translation>
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
        <translation>打开视频…</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Ctrl+Shift+O</translation>
    </message>
    <message>
        <source>Open comments…</source>
        <translation>打开弹幕…</translation>
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
        <translation>播放进度</translation>
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
        <translation>设置</translation>
    </message>
    <message>
        <source>Show comments</source>
        <translation>显示弹幕</translation>
    </message>
    <message>
        <source>Size of your comments</source>
        <translation>你的弹幕字号</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 磅</translation>
    </message>
    <message>
        <source>Speed of all comments</source>
        <translation>全部弹幕的速度</translation>
    </message>
    <message>
        <source>%1×</source>
        <translation>%1×</translation>
    </message>
    <message>
        <source>Reset to defaults</source>
        <translation>恢复默认</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Stay in the field after sending</source>
        <translation>发送后停留在输入框</translation>
    </message>
    <message>
        <source>Scrolling comments</source>
        <translation>滚动弹幕</translation>
    </message>
    <message>
        <source>Comments at the top</source>
        <translation>顶部弹幕</translation>
    </message>
    <message>
        <source>Comments at the bottom</source>
        <translation>底部弹幕</translation>
    </message>
    <message>
        <source>Part of the picture</source>
        <translation>显示区域</translation>
    </message>
    <message>
        <source>a quarter</source>
        <translation>四分之一</translation>
    </message>
    <message>
        <source>half</source>
        <translation>一半</translation>
    </message>
    <message>
        <source>three quarters</source>
        <translation>四分之三</translation>
    </message>
    <message>
        <source>all of it</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Opacity of all comments</source>
        <translation>全部弹幕的不透明度</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Size of all comments</source>
        <translation>全部弹幕的大小</translation>
    </message>
    <message>
        <source>Comments come later by</source>
        <translation>弹幕延后</translation>
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
        <translation>播放</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>播放或暂停</translation>
    </message>
    <message>
        <source>Back or forward 5 seconds</source>
        <translation>后退或前进 5 秒</translation>
    </message>
    <message>
        <source>Back or forward 1 second</source>
        <translation>后退或前进 1 秒</translation>
    </message>
    <message>
        <source>Back or forward 30 seconds</source>
        <translation>后退或前进 30 秒</translation>
    </message>
    <message>
        <source>Previous or next frame</source>
        <translation>上一帧或下一帧</translation>
    </message>
    <message>
        <source>Start or end</source>
        <translation>开头或结尾</translation>
    </message>
    <message>
        <source>Jump to 0% … 90%</source>
        <translation>跳到 0%～90% 处</translation>
    </message>
    <message>
        <source>Slower or faster</source>
        <translation>减速或加速</translation>
    </message>
    <message>
        <source>Normal speed</source>
        <translation>正常速度</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>Volume up or down</source>
        <translation>增大或减小音量</translation>
    </message>
    <message>
        <source>Mute or unmute</source>
        <translation>静音或取消静音</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>弹幕</translation>
    </message>
    <message>
        <source>Show or hide comments</source>
        <translation>显示或隐藏弹幕</translation>
    </message>
    <message>
        <source>Write a comment</source>
        <translation>写弹幕</translation>
    </message>
    <message>
        <source>Open comments</source>
        <translation>打开弹幕</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Open a video</source>
        <translation>打开视频</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>Close a page, exit full screen</source>
        <translation>关闭页面、退出全屏</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>统计信息</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Open a video</source>
        <translation>打开视频</translation>
    </message>
    <message>
        <source>or drop one here, along with a comment file if you have one.</source>
        <translation>或拖放到此处，也可以连同弹幕文件一起。</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>打开…</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>最近播放</translation>
    </message>
    <message>
        <source>%1, not found</source>
        <translation>%1，文件已不存在</translation>
    </message>
    <message>
        <source>No longer in %1</source>
        <translation>%1 中已没有此文件</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>从列表中移除</translation>
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
        <translation>%1 毫秒</translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation>每秒帧数</translation>
    </message>
    <message>
        <source>Frame time, average</source>
        <translation>平均帧时间</translation>
    </message>
    <message>
        <source>Frame time, worst in 5 s</source>
        <translation>5 秒内最长帧时间</translation>
    </message>
    <message>
        <source>Comments on screen</source>
        <translation>屏幕上的弹幕</translation>
    </message>
    <message>
        <source>Sprites made</source>
        <translation>已生成的文字图</translation>
    </message>
    <message>
        <source>Sprites waiting</source>
        <translation>等待中的文字图</translation>
    </message>
    <message>
        <source>Texture memory</source>
        <translation>纹理内存</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>分辨率</translation>
    </message>
    <message>
        <source>Decoder</source>
        <translation>解码器</translation>
    </message>
    <message>
        <source>software</source>
        <translation>软件</translation>
    </message>
</context>
<context>
    <name>StylePanel</name>
    <message>
        <source>Scrolling</source>
        <translation>滚动</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>顶部</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>底部</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>小</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>标准</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白色</translation>
    </message>
    <message>
        <source>Comment style</source>
        <translation>弹幕样式</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>A</source>
        <comment>a letter in the size of the comment</comment>
        <translation>A</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Color, as six hex digits</source>
        <translation>颜色，六位十六进制数</translation>
    </message>
</context>
<context>
    <name>Transport</name>
    <message>
        <source>Play again</source>
        <translation>重新播放</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>取消静音</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>静音</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Loading comments…</source>
        <translation>正在读取弹幕…</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>倍速</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Ctrl+,</source>
        <translation>Ctrl+,</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Exit full screen</source>
        <translation>退出全屏</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全屏</translation>
    </message>
</context>
</TS>
