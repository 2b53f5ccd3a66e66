<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>前往文件夹…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新载入</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>将文件复制到此处…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>将文件夹复制到此处…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>列表显示</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>网格显示</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>添加到收藏夹</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>同步</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上层文件夹</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
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
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>移动到…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>复制到…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>反选</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>放大图标</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>缩小图标</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>标准大小图标</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>隐藏文件</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>复制到电脑</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>在此文件夹及其下搜索</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>按日期分组</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>选择当天</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>在新标签页中打开</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>新建文件夹 %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 字节</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>已存在</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1”已存在。</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>新项目：%1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>现有项目：%1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>替换会合并文件夹；其中的同名文件会被替换。</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>保留两者</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>跳过</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>对其余 %Ln 项执行相同操作</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>空间不足</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>没有足够的空间进行此次复制。</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>至少需要 %1，而“%3”的可用空间为 %2。</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>需要 %1，而“%3”的可用空间为 %2。</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>仍然复制</translation>
    </message>
</context>
<context>
    <name>CopyText</name>
    <message>
        <source>%1 (%2)</source>
        <extracomment>the name of an item, and why it was left out</extracomment>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the items of a list</comment>
        <translation>、</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 以及另外 %Ln 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%1 项中有 %Ln 项未能复制：%2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>要删除 %Ln 个项目吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>要删除文件夹“%1”吗？</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>要删除“%1”吗？</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>以及另外 %Ln 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>将把 %Ln 个项目移到回收站。</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>它们会立即消失，不会进入手机的“最近删除”相簿。</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>此操作无法撤销。</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>要删除文件夹“%1”及其中的 %Ln 个项目吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>仍有复制正在进行：尚未读取的内容将不会出现在副本中。</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>将撤销复制到“%1”的操作。</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音频</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>归档</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>APK 安装包</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>源代码</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>iOS 文件传输</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>标准 MTP</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>极速模式 (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>排队中</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>进行中</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>内部存储</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>SD 卡</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>U 盘</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>可用 %1，共 %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>移到手机</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>仅到手机</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>移到此电脑</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>仅到此电脑</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>双向</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文稿</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片和视频</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>存储 %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>未全部完成</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>无日期</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今天</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨天</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>出了点问题。</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>出了点问题</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>。</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>另一个程序正在使用手机。</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>请重新插上手机并解锁。</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>请先重命名。</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>请解锁手机，并在手机上选择“文件传输”。</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>请重试。如果仍无效，请拔下手机后重新插上。</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>手机未连接。</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>手机已被拔出。</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>手机没有响应。</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>请将其解锁。如果仍无效，请拔下后重新插上。</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>与手机的连接已中断。</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 正在使用手机。</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>请关闭该程序，或在桌面的文件管理器中卸载手机，然后重试。</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>此用户无权打开手机的 USB 设备。</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>请安装 Tessary 附带的 udev 规则，然后重新插上手机。</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>手机尚未允许此电脑。</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>请解锁手机并回答其询问：轻点“信任”或“允许”。</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>手机已不再记得此电脑。</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>请拔下手机，重新插上，并在手机上轻点“信任”。</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>手机已锁定。</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>请解锁手机后重试。</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>手机存储不可用。</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>手机结束了连接。</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>无法连接到手机。</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>请检查数据线或网络。在 Android 手机上，极速模式需要开启 USB 调试；标准 MTP 则不需要。</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>手机的响应无效。</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>请拔下手机后重新插上。</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>手机正忙于另一项复制。</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>请在其完成后重试。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>手机上没有“%1”。</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>已不在手机上</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>它可能已被删除或重命名：请刷新文件夹。</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1”已存在。</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>名称已被占用</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>手机上有“%1”，手机将“%2”视为同一名称。</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>手机将其名称视为与另一项相同</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>请先重命名其中一个。</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>“%1”不是文件夹。</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>不是文件夹</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>“%1”不是文件。</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>不是文件</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>文件夹“%1”不为空。</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>文件夹不为空</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>“%1”不能用作手机上的名称。</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>手机不允许此名称</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>手机不允许对“%1”执行此操作。</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>手机不允许</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>请将其解锁，并尝试其他文件夹。</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>“%1”在手机上受写保护。</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>在手机上受写保护</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>请选择其他文件夹。</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>“%1”对于手机的此存储来说太大。</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>对于手机的此存储来说太大</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>“%1”在此期间已在手机上更改，已保持原样。</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>在此期间已在手机上更改</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>请刷新文件夹后重试。</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>无法读取“%1”。</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>无法完整读取文件夹“%1”。</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>无法完整读取文件夹</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>手机发送了“%1”的 %3 字节中的 %2 字节。</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>大小与所报告的不符</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>请重新复制。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>文件夹“%1”不能位于其自身之中。</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>文件夹不能位于其自身之中</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>不能将整个存储作为一项进行更改或复制。</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>不能将整个存储作为一项进行更改或复制</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>手机无法将“%1”移动到另一个存储。</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>手机无法将其移动到另一个存储</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>请改为复制。</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>手机不支持此操作。</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>手机无法执行此操作</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>手机拒绝了对“%1”的操作。</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>手机拒绝了</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>手机表示同意，但没有对“%1”进行任何操作。</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>手机表示同意，但未进行任何操作</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>手机存储空间已满。</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>手机的存储已满</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>请删除手机上的部分内容，或减少复制的内容。</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>无法写入此电脑</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>无法创建文件夹“%1”：%2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>无法在此电脑上创建文件夹</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>无法删除“%1”：%2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>无法在此电脑上删除</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>无法重命名“%1”：%2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>无法在此电脑上重命名</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>“%1”已不在此电脑上。</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>已不在此电脑上</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>“%1”不是普通文件。</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>它不是普通文件</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>文件“%1”应在的位置是一个文件夹。</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>此电脑上有同名文件夹</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>文件夹“%1”应在的位置是一个文件。</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>此电脑上有同名文件</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>“%1”在复制过程中发生了更改。</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>在复制过程中发生了更改</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>名称“%1”不能在此电脑上使用。</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>名称无法用于此电脑</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>名称“%1”对此电脑来说太长。</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>名称对此电脑而言过长</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>“%1”指向目标文件夹之外。</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>指向目标文件夹之外</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>“%1”是链接；不会跟随链接。</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>它是链接；不会跟随链接</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>“%1”所在的磁盘已没有空间。</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>此电脑的磁盘已没有空间</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>请删除其中的部分内容，或选择其他文件夹。</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>请安装 adb 工具，或将手机切换到标准 MTP。</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>此电脑的 USB 调试密钥无法使用。</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>请将手机切换到标准 MTP。</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>adb 服务器没有响应。</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>未安装 adb。</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb 无法连接到手机。</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>请在手机上开启 USB 调试，或切换到标准 MTP。</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb 连接到多部手机，无法判断是哪一部。</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>请拔下其他手机，或切换到标准 MTP。</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>对 adb 而言手机处于离线状态。</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>请拔下后重新插上，或关闭再开启 USB 调试。</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>手机的 Android 版本过旧，不支持 极速模式。</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>名称“%1”不是有效的文本。</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>名称不是有效文本</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>“%1”的路径太长。</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>其路径太长</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>请稍后重试。</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>服务器未及时响应。</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>服务器的响应过长。</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>服务器地址不安全。</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>服务器无限重定向。</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>服务器的响应中断了。</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>无法连接到服务器：%1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>无法连接到服务器</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>服务器返回错误 %1。</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>服务器返回错误</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>服务器的响应不符合预期。</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>此电脑的 adb 版本过旧，无法配对。</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>需要 30 或更高版本。</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb 无法连接到手机：%2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb 无法连接到手机</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>请将其解锁，并在调试的询问中轻点“允许”。</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>极速模式需要 adb，但尚未安装。现改用标准 MTP。</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>同步文件夹时“%1”发生了更改，已保持原样。</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>在同步期间发生了更改</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>“%1”在一侧是文件，在另一侧是文件夹。</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>它在一侧是文件，在另一侧是文件夹</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>另一个名称与“%1”仅大小写或字符形式不同。</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>另一个名称仅大小写或字母形式不同</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>在其中一侧无法读取文件夹“%1”的内容。</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>在其中一侧无法读取其文件夹</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>“%1”所在的文件夹中有无法读取的项。</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>其文件夹中有无法读取的项</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>“%1”在仅接收复制的一侧被更改。</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>在仅接收复制的一侧被更改</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>“%1”已保持原样。</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>已选择保持原样</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>手机未提供“%1”的大小。</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>手机未提供其大小</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>手机上有多个名为“%1”的项。</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>手机上有多个同名的项</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>文件夹“%1”的层级过深。</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>文件夹的层级过深</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>未做任何更改。</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>以前同步过的文件夹“%1”已不存在。</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>请连接其磁盘，或重新创建该文件夹。</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>无法将同步内容记录到“%1”。</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>无法记录同步内容</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>下次同步无法得知此后删除了什么：会将这些文件复制回来。</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>请删除该磁盘上的部分内容。传输中的文件会暂存在那里。</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>其他用户可以更改“%1”中的内容。</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>其他用户可以更改该文件夹中的内容</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>请不要让其他用户写入该文件夹。</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>“%1”的副本与原件不一致，已被移除。</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>副本与原件不一致</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>“%1”在复制之后已更改，已保持原样。</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>在复制之后已更改</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>如果不需要，请自行删除。</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>无线设备…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>退出 Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>View</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>前往</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>复制历史…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>新建窗口</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>新建标签页</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>下一个标签页</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>上一个标签页</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>未能读取文件夹。</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>刷新后重试。</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>未能读取应用。</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>刷新列表后重试。</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>请前往上层文件夹。</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>请检查拼写，或在下方选择文件夹。</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>现在显示的是另一个文件夹。未执行任何操作。</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>无法创建“%1”：%2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>无法重命名“%1”：%2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>无法移动“%1”：%2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>无法删除“%1”：%2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>the name of an item, and why it failed</extracomment>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the items of a list</comment>
        <translation>、</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 以及另外 %Ln 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%1 项中有 %Ln 项无法移动：%2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%1 项中有 %Ln 项无法删除：%2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>文件夹“%1”已不在手机上。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>手机上没有“%1”。</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>无法获取“%1”：%2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>搜索已停止。显示的是已找到的内容。</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>无法打开“%1”：找不到适用的程序，或程序未能启动。</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>此处无法将文件夹拖到其他程序。</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>请先将其复制到此电脑。</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>复制“%1”所需的时间太长，无法在拖动时完成。</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>是(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否(&amp;N)</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>释放手机</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>为释放手机，将结束这些程序：%1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>它们正在进行的复制会中断，它们显示的手机文件夹会关闭。对手机上文件的未保存更改可能会丢失。</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>结束程序</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>在文件管理器中打开</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>此电脑上的文件夹</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>复制到手机</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>在手机上替换</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>复制到此电脑</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>在此电脑上替换</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>移到手机</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>移到此电脑</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>保留两个版本</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>在手机上删除</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>在此电脑上删除</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>在手机上重命名</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>在此电脑上重命名</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>正在连接设备…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>正在等待另一个同步…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>正在扫描文件夹…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>正在等待确认删除…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>正在分析文件…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>正在开始传输…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>正在上传</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>正在下载</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>正在移动</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>正在移动（已在目标处）</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>新文件和更改过的文件会双向复制。在一侧删除的文件，经您同意后也会在另一侧删除。</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>新文件和更改过的文件会双向复制。在一侧删除的文件会复制回去。</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>文件会移到手机：每个文件到达后即从此处删除。</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>新文件和更改过的文件会复制到手机。不会删除任何内容。</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>文件会移到此处：每个文件到达后即从手机中删除。</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>手机上的新文件和更改过的文件会复制到此处。不会删除任何内容。</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>正在删除</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>此电脑上的文件夹为空，而上次同步后其中有 %Ln 个文件。是否缺少其磁盘？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>手机上的文件夹为空，而上次同步后其中有 %Ln 个文件。是否缺少存储卡？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>上次同步的 %Ln 个文件中有一半以上将被删除。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln 个文件保持原样</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>与 %1 的同步未完成。</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>与 %1 的同步使一些文件保持原样。</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>已复制到手机</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>已在手机上替换</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>已复制到此电脑</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>已在此电脑上替换</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>已移到手机</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>已移到此电脑</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>已保留两个版本</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>已在手机上删除</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>已在此电脑上删除</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>已在手机上重命名</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>已在此电脑上重命名</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>筛选…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>正在查找 App…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>没有共享文件的 App</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>没有匹配的 App</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>连接失败</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>只有开发者开启了文件共享的应用才能从电脑上打开。照片和视频可以打开。</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片和视频</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>相机拍摄的内容，以及与之一起保存的内容</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>中间的文件夹</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>视图模式</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>筛选…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>复制到手机</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>向下搜索…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>更多命令</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>已选择 %Ln 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件列表</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>从收藏夹移除</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%Ln 项中的 %1 项</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>已完成 %1/%2（按 Esc 停止）</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>正在读取…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>添加到收藏夹</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>到“%1”</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>正在搜索…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>（Esc 停止）</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>复制到</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>将文件复制到手机</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>将文件夹复制到手机</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>移动到</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>移动到此处</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>复制到此处</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>复制历史</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>搜索复制记录</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>未复制的内容</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>清除历史记录…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>尚未复制任何内容。</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>没有与此搜索匹配的复制记录。</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>清除历史记录</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>要清除复制记录吗？</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>已复制的文件会保留。中断的复制不会再次提示。</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>需要您处理</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>电量 %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>已锁定：请解锁</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在连接…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>正在读取存储…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>已在文件管理器中打开</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>打开方式</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>正在查找程序…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>没有已知的程序可以打开它</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>撤销重命名</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>撤销移动</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>撤销新建文件夹</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>撤销复制</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>要在各自的标签页中打开 %1 个文件夹吗？</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>移动到此处</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>复制到此处</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>复制详细信息</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>正在获取文件</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 项</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>文件夹名称</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>从手机复制到</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>双击文件时</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>新手机的文件显示为</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>每次询问的文件夹</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>选取…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>打开它</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>显示预览</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>复制到此电脑</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>始终为同一文件夹</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>使用极速模式</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>用于所有允许的手机</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>仅用于选择了它的手机</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 项</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>新建文件夹…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>存储</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上层文件夹</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>正在读取…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>这里没有文件夹。</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>新文件夹的名称：</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>手机已断开</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>请重新插上手机并解锁。</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>请重新插上手机，解锁并选择“文件传输”。</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>连接失败</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>未找到文件夹</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>在设备上找不到此文件夹。它可能已被删除或移动。要将它从收藏夹中移除吗？</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>从收藏夹移除</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>它可能已在手机上被删除或移动。</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上层文件夹</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>正在载入文件夹内容…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>正在载入设备存储…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>没有匹配的文件</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>这里没有名称包含“%1”的项目。</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>这里只有隐藏文件</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>它们的名称以点开头。</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>显示隐藏文件</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>此文件夹为空</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>将文件拖到此处即可复制到手机。</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>正在搜索“%1”…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>此文件夹及其下没有名称包含“%1”的项。</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>显示文件夹</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>将文件拖到此处即可复制到此文件夹。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 个项目无法读取。</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>正在将文件复制到此文件夹…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>复制完成后即会显示。</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>未能读取您的设置。Tessary 将使用默认设置。</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>文件已损坏：%1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>已保留损坏的文件：%1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>未能保存您的设置：%1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>它们在 Tessary 退出前有效，每次更改都会重试。</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>此电脑上的另一个程序也会打开手机。</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>如果手机的文件没有显示在这里，请让该程序释放手机。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>释放手机</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>显示报告</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>“%1”的复制中断了。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln 项复制中断了。</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>手机已重新连接。已到达的内容不会再次复制。</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>继续复制</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>无法在文件管理器中打开“%1”。</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>此电脑不允许用户挂载。可能未安装 FUSE。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>请插上手机并解锁。在 Android 手机的 USB 通知中选择“文件传输”；在 iPhone 上轻点“信任”。</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>将文件拖出窗口即可复制到此电脑，拖入窗口即可复制到手机。</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>按 F3 可在手机的文件夹旁边显示此电脑的文件夹：可在两者之间拖动或粘贴。</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>“导入照片…”会取回相机中的新照片，“同步”会让此处的文件夹与手机上的文件夹保持一致。</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>拖动时，Ctrl 复制，Shift 移动，Alt 询问。</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>入门</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>也显示已导入的内容</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>每天一个文件夹</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片和视频</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>从“%1”导入</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>正在查找照片和视频…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>找到 %Ln 个文件</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>正在从手机中删除…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 个项目无法读取。</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>此手机上的内容均已导入过。</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>没有新照片</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>没有照片或视频</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>已选择 %Ln 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1/%2 个文件</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>正在导入…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>它们已与手机上的内容比对，位于 %1。</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>并非全部到达：下方的复制列表会说明原因。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>已导入 %Ln 个照片和视频</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>从手机中删除…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>导入更多</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln 个文件保留了下来，第一个的原因：%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>已从手机中删除 %Ln 个照片和视频</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>要从手机中删除 %Ln 个照片和视频吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>它们会立即消失，不会进入手机的“最近删除”相簿。</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>删除前会再次读取此电脑上的每个副本。此操作无法撤销。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary：虚拟手机</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>退出 Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>仍在复制文件。</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>同步仍在进行。</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>退出会取消此操作。已完整传到的内容会保留。</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>导入照片…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>仍在更改手机上的文件。</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>退出会停止此操作。已完成的部分保持不变。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>关闭会停止此操作。已完成的部分保持不变。</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>适用于所有手机，无需设置。</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>更快，可见内容更多。需要在手机上开启 USB 调试。</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>正在获取“%1”以便打开…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>正在获取 %Ln 个文件以便打开…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>在手机旁显示此电脑</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>手机</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>导入照片…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>立即同步</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>存储空间</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>正在查看占用情况…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>同步的文件夹</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>无线</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>浏览照片</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>浏览文件</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>释放手机</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>此手机已锁定</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>解锁手机并在其 USB 通知中选择“文件传输”后即可显示文件。此窗口会自动更新。</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>导入照片</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>此手机已锁定</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>解锁手机并在其 USB 通知中选择“文件传输”后即可显示文件。此窗口会自动更新。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>释放手机</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>相机和照片</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音乐</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>电影和视频</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文稿</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一项</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一项</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>上一页</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>下一页</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>“%1”太大，无法预览。请先复制到此电脑。</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>无法显示：文件已损坏、过大或受保护。</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>仅显示开头</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>第 %1 页，共 %2 页</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1字节</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>包含</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>修改日期</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>属性</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 项</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>多种类型</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>停止统计</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>正在统计内容</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>文件：%1，文件夹：%2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>统计已停止：可能还有更多内容。</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>无法读取的文件夹：%1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>同步</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>系统默认</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>选择您偏好的显示语言。更改会立即生效。</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>按上次关闭时的样子打开窗口</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>自动检查更新</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>浏览手机并双向复制文件。</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>网站</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>将每个副本与原件比较</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>副本重新读取并确认一致后才算完成。这需要更长时间。</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>无线设备…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>收藏夹</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>快捷方式</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>存储卷</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>已连接的设备</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>没有设备</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>请通过 USB 连接 iOS 或 Android 设备</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>将文件夹拖到此处以便随时打开。</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>从收藏夹移除</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>从文件管理器中移除</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>排序方式</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>升序</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降序</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>关闭此消息</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>%1 的同步</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>在一侧删除的文件，经询问后也会在另一侧删除</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>文件到达后从原处移除</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>同步此文件夹</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>双向</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>仅到手机</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>仅到此电脑</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>选取…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>手机上的文件夹</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>显示将要进行的操作</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>每次连接此手机时同步</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>编辑此配对</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>忽略</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>每行一个模式，按 .gitignore 规则：*.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>尚无同步的文件夹。请打开手机上的一个文件夹，然后选择“同步此文件夹…”。</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>排队中</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>立即同步</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>移除此配对</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>要停止同步这些文件夹吗？</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>两侧都不会删除任何文件。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>尚未同步</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>显示将要进行的操作</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>报告…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>编辑…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>同步</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>同步此文件夹…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>全部同步</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>保持不变</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>将要进行的操作</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>立即同步</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>正在比较文件夹…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>无法比较文件夹</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln 个文件已经相同</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>需检查 %Ln 个文件，需复制 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>保留此电脑的版本</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>保留手机的版本</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>全部重新复制</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>在此电脑上</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>在手机上</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>要删除的文件</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>上次同步后已编辑</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>重新创建</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>要删除文件吗？</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln 个文件已在一侧删除。也要在另一侧删除吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>您保留的内容会复制回去。</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>文件夹缺失</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>此电脑上的文件夹已不存在</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>停止，不做任何更改</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>文件夹为空</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>要将所有内容重新复制到那里吗？</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>全部重新复制</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>报告</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>运行记录</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件列表</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>尚无报告。</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>执行内容</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>列</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>标签页</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>关闭标签页</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>即将完成：手机仍在存储文件</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩余 %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>复制进行时 Tessary 已退出。</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 以及另外 %Ln 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln 个文件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>“%1”已复制。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>已复制 %Ln 个项目。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>“%1”未能复制。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%1 个项目中有 %Ln 个未能复制。</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>复制已完成</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>复制时出错</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>所有传输均已结束</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩余 %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>传输</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>全部取消</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>清除已完成</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>历史记录…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>修改日期</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>检查更新失败</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 是目前的最新版本。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>Tessary 有新版本可用。</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 可供更新</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>跳过此版本</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>稍后</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音乐</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>已用</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>可用</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>连接手机</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>用虚拟手机试用</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>使用两部含示例文件的虚拟手机重新启动 Tessary</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>插上手机</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>请使用数据线：有些线只能充电。</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>解锁手机</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>锁定的手机不会显示任何存储内容。</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>在手机上允许</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android：点按通知“正在通过 USB 为此设备充电”，然后选择“文件传输”。iPhone：点按“信任”。</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>释放手机</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>正在配对…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在连接…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>已配对</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>等待配对</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>可以连接</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>无线设备</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>此网络中已开启无线调试的手机。</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>正在搜索手机…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>重新搜索</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>此电脑无法在网络中搜索手机：所需的服务（avahi-daemon）未运行。</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>请在手机的开发者选项中开启无线调试。手机须与此电脑处于同一网络。</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>等待配对的手机会显示六位数字的配对码。</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>配对…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>手机上显示的六位数字：</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>配对</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
