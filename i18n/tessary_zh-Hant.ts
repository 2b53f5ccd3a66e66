<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>下一頁</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>前往資料夾…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新載入</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新增資料夾</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重新命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>刪除</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>將檔案複製到這裡…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>將資料夾複製到這裡…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全選</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>篩選</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>以列表顯示</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>以格狀顯示</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>加入我的最愛</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>同步</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>內容</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上層資料夾</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>預覽</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼上</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>復原</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪下</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>複製路徑</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>移動到…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>複製到…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>建立副本</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>反向選取</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>放大圖示</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>縮小圖示</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>標準大小圖示</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>隱藏檔案</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>複製到電腦</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>在此資料夾及其下搜尋</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開啟</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>依日期分組</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>選取當天</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>在新分頁中開啟</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>新增資料夾</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>新增資料夾 %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 位元組</translation>
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
        <translation>「%1」已存在。</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>新項目：%1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>現有項目：%1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>取代會合併資料夾；其中的同名檔案會被取代。</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>取代</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>保留兩者</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>略過</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>對其餘 %Ln 項執行相同操作</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>空間不足</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>沒有足夠的空間進行這次複製。</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>至少需要 %1，而「%3」的可用空間為 %2。</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>需要 %1，而「%3」的可用空間為 %2。</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>仍要複製</translation>
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
            <numerusform>%1 以及另外 %Ln 項</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%1 項中有 %Ln 項未能複製：%2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>要刪除 %Ln 個項目嗎？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>要刪除資料夾「%1」嗎？</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>要刪除「%1」嗎？</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>以及另外 %Ln 項</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>將把 %Ln 個項目移到垃圾桶。</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>它們會立即消失，不會進入手機的「最近刪除」相簿。</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>此動作無法還原。</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>要刪除資料夾「%1」及其中的 %Ln 個項目嗎？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>刪除</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>仍有複製正在進行：尚未讀取的內容將不會出現在副本中。</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>將復原複製到「%1」的動作。</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>資料夾</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>影像</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>視訊</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音訊</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>封存檔</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>APK 安裝檔</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>原始碼</translation>
    </message>
    <message>
        <source>File</source>
        <translation>檔案</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>iOS 檔案傳輸</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>標準 MTP</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>極速模式 (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上傳</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下載</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>排隊中</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>進行中</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>內部儲存空間</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>SD 卡</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>USB 隨身碟</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>可用 %1，共 %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>移到手機</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>僅到手機</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>移到此電腦</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>僅到此電腦</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>雙向</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片與影片</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>儲存空間 %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暫停</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>未全部完成</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>沒有日期</translation>
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
        <translation>發生問題。</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>發生問題</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>。</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>另一個程式正在使用手機。</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>請重新接上手機並解鎖。</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>請先重新命名。</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>請解鎖手機，並在手機上選擇「檔案傳輸」。</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>請再試一次。若仍無效，請拔下手機後重新接上。</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>手機未連接。</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>手機已被拔除。</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>手機沒有回應。</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>請將其解鎖。若仍無效，請拔下後重新接上。</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>與手機的連線已中斷。</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 正在使用手機。</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>請關閉該程式，或在桌面的檔案管理員中卸載手機，然後重試。</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>此使用者無權打開手機的 USB 裝置。</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>請安裝 Tessary 附帶的 udev 規則，然後重新插上手機。</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>手機尚未允許此電腦。</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>請解鎖手機並回答其詢問：點一下「信任」或「允許」。</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>手機已不再記得此電腦。</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>請拔下手機，重新接上，並在手機上點一下「信任」。</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>手機已鎖定。</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>請解鎖手機後重試。</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>手機儲存空間無法使用。</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>手機結束了連線。</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>無法連接到手機。</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>請檢查傳輸線或網路。在 Android 手機上，極速模式需要開啟 USB 偵錯；標準 MTP 則不需要。</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>手機的回應無效。</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>請拔下手機後重新接上。</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>手機正忙於另一項複製。</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>請在其完成後再試一次。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>手機上沒有「%1」。</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>已不在手機上</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>它可能已被刪除或重新命名：請重新整理資料夾。</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>「%1」已存在。</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>名稱已被使用</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>手機上有「%1」，手機將「%2」視為同一名稱。</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>手機將其名稱視為與另一項相同</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>請先重新命名其中一個。</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>「%1」不是資料夾。</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>不是資料夾</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>「%1」不是檔案。</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>不是檔案</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>資料夾「%1」不是空的。</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>資料夾不是空的</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>「%1」不能用作手機上的名稱。</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>手機不允許此名稱</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>手機不允許對「%1」執行此操作。</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>手機不允許</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>請將其解鎖，並嘗試其他資料夾。</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>「%1」在手機上有寫入保護。</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>在手機上有寫入保護</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>請選擇其他資料夾。</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>「%1」對於手機的此儲存空間來說太大。</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>對於手機的此儲存空間來說太大</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>「%1」在此期間已在手機上變更，已保持原樣。</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>在此期間已在手機上變更</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>請重新整理資料夾後再試一次。</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>無法讀取「%1」。</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>無法讀取</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>無法完整讀取資料夾「%1」。</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>無法完整讀取資料夾</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>手機傳送了「%1」的 %3 位元組中的 %2 位元組。</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>大小與所回報的不符</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>請重新複製。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>資料夾「%1」不能位於其自身之中。</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>資料夾不能位於其自身之中</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>不能將整個儲存空間作為一項進行變更或複製。</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>不能將整個儲存空間作為一項進行變更或複製</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>手機無法將「%1」移動到另一個儲存空間。</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>手機無法將其移動到另一個儲存空間</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>請改為複製。</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>手機不支援此動作。</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>手機無法執行此操作</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>手機拒絕了對「%1」的操作。</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>手機拒絕了</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>手機表示同意，但沒有對「%1」進行任何操作。</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>手機表示同意，但未進行任何操作</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>手機儲存空間已滿。</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>手機的儲存空間已滿</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>請刪除手機上的部分內容，或減少複製的內容。</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>無法讀取「%1」：%2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>無法寫入「%1」：%2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>無法寫入此電腦</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>無法建立資料夾「%1」：%2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>無法在此電腦上建立資料夾</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>無法刪除「%1」：%2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>無法在此電腦上刪除</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>無法重新命名「%1」：%2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>無法在此電腦上重新命名</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>「%1」已不在此電腦上。</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>已不在此電腦上</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>「%1」不是一般檔案。</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>它不是一般檔案</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>檔案「%1」應在的位置是一個資料夾。</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>此電腦上有同名資料夾</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>資料夾「%1」應在的位置是一個檔案。</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>此電腦上有同名檔案</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>「%1」在複製過程中有所變更。</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>在複製過程中有所變更</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>名稱「%1」不能在此電腦上使用。</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>名稱無法用於此電腦</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>名稱「%1」對此電腦來說太長。</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>名稱對此電腦而言過長</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>「%1」指向目標資料夾之外。</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>指向目標資料夾之外</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>「%1」是連結；不會跟隨連結。</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>它是連結；不會跟隨連結</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>「%1」所在的磁碟已沒有空間。</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>此電腦的磁碟已沒有空間</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>請刪除其中的部分內容，或選擇其他資料夾。</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>請安裝 adb 工具，或將手機切換到標準 MTP。</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>此電腦的 USB 偵錯金鑰無法使用。</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>請將手機切換到標準 MTP。</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>adb 伺服器沒有回應。</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>未安裝 adb。</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb 無法連接到手機。</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>請在手機上開啟 USB 偵錯，或切換到標準 MTP。</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb 連接到多部手機，無法判斷是哪一部。</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>請拔下其他手機，或切換到標準 MTP。</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>對 adb 而言手機處於離線狀態。</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>請拔下後重新接上，或關閉再開啟 USB 偵錯。</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>手機的 Android 版本過舊，不支援 極速模式。</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>名稱「%1」不是有效的文字。</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>名稱不是有效文字</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>「%1」的路徑太長。</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>其路徑太長</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>請稍後再試。</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>伺服器未及時回應。</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>伺服器的回應過長。</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>伺服器位址不安全。</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>伺服器無限重新導向。</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>伺服器的回應中斷了。</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>無法連接到伺服器：%1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>無法連接到伺服器</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>伺服器傳回錯誤 %1。</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>伺服器傳回錯誤</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>伺服器的回應不符合預期。</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>此電腦的 adb 版本過舊，無法配對。</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>需要 30 或更新版本。</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb 無法連接到手機：%2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb 無法連接到手機</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>請將其解鎖，並在偵錯的詢問中點一下「允許」。</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>極速模式需要 adb，但尚未安裝。現改用標準 MTP。</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>同步資料夾時「%1」發生了變更，已保持原樣。</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>在同步期間發生了變更</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>「%1」在一側是檔案，在另一側是資料夾。</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>它在一側是檔案，在另一側是資料夾</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>另一個名稱與「%1」僅大小寫或字元形式不同。</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>另一個名稱僅大小寫或字母形式不同</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>在其中一側無法讀取資料夾「%1」的內容。</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>在其中一側無法讀取其資料夾</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>「%1」所在的資料夾中有無法讀取的項。</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>其資料夾中有無法讀取的項</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>「%1」在僅接收複製的一側被變更。</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>在僅接收複製的一側被變更</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>「%1」已保持原樣。</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>已選擇保持原樣</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>手機未提供「%1」的大小。</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>手機未提供其大小</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>手機上有多個名為「%1」的項。</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>手機上有多個同名的項</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>資料夾「%1」的層級過深。</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>資料夾的層級過深</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>未做任何變更。</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>以前同步過的資料夾「%1」已不存在。</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>請連接其磁碟，或重新建立該資料夾。</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>無法將同步內容記錄到「%1」。</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>無法記錄同步內容</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>下次同步無法得知此後刪除了什麼：會將這些檔案複製回來。</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>請刪除該磁碟上的部分內容。傳輸中的檔案會暫存在那裡。</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>其他使用者可以更改「%1」中的內容。</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>其他使用者可以更改該資料夾中的內容</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>請不要讓其他使用者寫入該資料夾。</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>「%1」的副本與原件不一致，已被移除。</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>副本與原件不一致</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>「%1」在複製之後已變更，已保持原樣。</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>在複製之後已變更</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>如果不需要，請自行刪除。</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>無線裝置…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>結束 Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>檔案</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編輯</translation>
    </message>
    <message>
        <source>View</source>
        <translation>檢視</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>前往</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全螢幕</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>複製歷史…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>新增視窗</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>輔助說明</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>新增分頁</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>關閉分頁</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>下一個分頁</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>上一個分頁</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>未能讀取資料夾。</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>重新整理後再試一次。</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>未能讀取 App。</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>重新整理列表後再試一次。</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>請前往上層資料夾。</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>請檢查拼字，或在下方選擇資料夾。</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>現在顯示的是另一個資料夾。未執行任何操作。</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>無法建立「%1」：%2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>無法重新命名「%1」：%2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>無法移動「%1」：%2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>無法刪除「%1」：%2</translation>
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
            <numerusform>%1 以及另外 %Ln 項</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%1 項中有 %Ln 項無法移動：%2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%1 項中有 %Ln 項無法刪除：%2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>資料夾「%1」已不在手機上。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>手機上沒有「%1」。</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>無法取得「%1」：%2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>搜尋已停止。顯示的是已找到的內容。</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>無法開啟「%1」：找不到適用的程式，或程式未能啟動。</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>此處無法將資料夾拖曳到其他程式。</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>請先將其複製到此電腦。</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>複製「%1」所需的時間太長，無法在拖曳時完成。</translation>
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
        <translation>關閉</translation>
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
        <translation>釋放手機</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>為釋放手機，將結束這些程式：%1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>它們正在進行的複製會中斷，它們顯示的手機資料夾會關閉。對手機上檔案的未儲存變更可能會遺失。</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>結束程式</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>在檔案管理員中打開</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>此電腦上的資料夾</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>名稱</translation>
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
        <translation>複製到手機</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>在手機上取代</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>複製到此電腦</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>在此電腦上取代</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>移到手機</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>移到此電腦</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>保留兩個版本</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>在手機上刪除</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>在此電腦上刪除</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>在手機上重新命名</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>在此電腦上重新命名</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>正在連接裝置…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>正在等待另一個同步…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>正在掃描資料夾…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>正在等待確認刪除…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>正在分析檔案…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>正在開始傳輸…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>正在上傳</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>正在下載</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>正在移動</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>正在移動（已在目標處）</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>已是最新</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>新檔案和更改過的檔案會雙向複製。在一側刪除的檔案，經您同意後也會在另一側刪除。</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>新檔案和更改過的檔案會雙向複製。在一側刪除的檔案會複製回去。</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>檔案會移到手機：每個檔案到達後即從此處刪除。</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>新檔案和更改過的檔案會複製到手機。不會刪除任何內容。</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>檔案會移到此處：每個檔案到達後即從手機中刪除。</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>手機上的新檔案和更改過的檔案會複製到此處。不會刪除任何內容。</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>正在刪除</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>此電腦上的資料夾是空的，而上次同步後其中有 %Ln 個檔案。是否缺少其磁碟？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>手機上的資料夾是空的，而上次同步後其中有 %Ln 個檔案。是否缺少記憶卡？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>上次同步的 %Ln 個檔案中有一半以上將被刪除。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln 個檔案保持原樣</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>與 %1 的同步未完成。</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>與 %1 的同步使一些檔案保持原樣。</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>已複製到手機</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>已在手機上取代</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>已複製到此電腦</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>已在此電腦上取代</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>已移到手機</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>已移到此電腦</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>已保留兩個版本</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>已在手機上刪除</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>已在此電腦上刪除</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>已在手機上重新命名</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>已在此電腦上重新命名</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>篩選…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>正在尋找 App⋯</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>沒有分享檔案的 App</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>沒有符合的 App</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除篩選</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>連線失敗</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>只有開發者開啟了檔案共享的 App 才能從電腦上打開。照片和影片可以打開。</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片與影片</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>相機拍攝的內容，以及與之一起儲存的內容</translation>
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
        <translation>路徑</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>中間的資料夾</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>檢視模式</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>篩選…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除篩選</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路徑</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>複製到手機</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>向下搜尋…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>更多指令</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>已選取 %Ln 項</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>檔案列表</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>從我的最愛移除</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 個項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%Ln 個項目中的 %1 個</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>已完成 %1/%2（按 Esc 停止）</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>正在讀取…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>加入我的最愛</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>到「%1」</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>正在搜尋…</translation>
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
        <translation>複製到</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>將檔案複製到手機</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>將資料夾複製到手機</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>移動到</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>移動到這裡</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>複製到這裡</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>複製歷史</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>搜尋複製記錄</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>未複製的內容</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在資料夾中顯示</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>清除歷史記錄…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>尚未複製任何內容。</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>沒有符合此搜尋的複製記錄。</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>清除歷史記錄</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>要清除複製記錄嗎？</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>已複製的檔案會保留。中斷的複製不會再次提示。</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>需要您處理</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>電量 %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>已鎖定：請解鎖</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在連線…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>正在讀取儲存空間…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>已在檔案管理員中打開</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>開啟方式</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>正在尋找程式…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>沒有已知的程式可以開啟它</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>復原</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>復原重新命名</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>復原移動</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>復原新增資料夾</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>復原複製</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>要在各自的分頁中開啟 %1 個資料夾嗎？</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>移動到這裡</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>複製到這裡</translation>
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
        <translation>詳細資訊</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>複製詳細資訊</translation>
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
        <translation>正在取得檔案</translation>
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
            <numerusform>%Ln 個項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>資料夾名稱</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名稱</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>從手機複製到</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>按兩下檔案時</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>新手機的檔案顯示為</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>每次詢問的資料夾</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選擇…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>打開它</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>顯示預覽</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>複製到此電腦</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>圖片</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>一律使用同一個資料夾</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>使用極速模式</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>用於所有允許的手機</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>僅用於選擇了它的手機</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 個項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>新增資料夾…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>儲存空間</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上層資料夾</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>資料夾</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>正在讀取…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>這裡沒有資料夾。</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新增資料夾</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>新資料夾的名稱：</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>手機已中斷連線</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>請重新接上手機並解鎖。</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>請重新插上手機，解鎖並選擇「檔案傳輸」。</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>連線失敗</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>找不到資料夾</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>在裝置上找不到此資料夾。它可能已被刪除或移動。要將它從我的最愛中移除嗎？</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>從我的最愛移除</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>它可能已在手機上被刪除或移動。</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上層資料夾</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>正在載入資料夾內容…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>正在載入裝置儲存空間…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>沒有符合的檔案</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>這裡沒有名稱包含「%1」的項目。</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>清除篩選</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>這裡只有隱藏檔案</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>它們的名稱以點開頭。</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>顯示隱藏檔案</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>此資料夾是空的</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>將檔案拖到這裡即可複製到手機。</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>正在搜尋「%1」…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>找不到</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>此資料夾及其下沒有名稱包含「%1」的項目。</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>顯示資料夾</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>將檔案拖到這裡即可複製到此資料夾。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 個項目無法讀取。</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>正在將檔案複製到此資料夾…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>複製完成後即會顯示。</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>未能讀取您的設定。Tessary 將使用預設設定。</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>檔案已損壞：%1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>已保留損壞的檔案：%1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>未能儲存您的設定：%1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>它們在 Tessary 結束前有效，每次變更都會重試。</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>此電腦上的另一個程式也會開啟手機。</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>如果手機的檔案沒有顯示在這裡，請讓該程式釋放手機。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>釋放手機</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>顯示報告</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>「%1」的複製中斷了。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln 項複製中斷了。</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>手機已重新連接。已送達的內容不會再次複製。</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>繼續複製</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>無法在檔案管理員中打開「%1」。</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>此電腦不允許使用者掛載。可能未安裝 FUSE。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>請插上手機並解鎖。在 Android 手機的 USB 通知中選擇「檔案傳輸」；在 iPhone 上點一下「信任」。</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>將檔案拖出視窗即可複製到此電腦，拖進視窗即可複製到手機。</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>按 F3 可在手機的資料夾旁邊顯示此電腦的資料夾：可在兩者之間拖移或貼上。</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>「輸入照片…」會取回相機中的新照片，「同步」會讓此處的資料夾與手機上的資料夾保持一致。</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>拖移時，Ctrl 複製，Shift 移動，Alt 詢問。</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快速鍵</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>輔助說明</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>入門</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>也顯示已輸入的內容</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>每天一個資料夾</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>照片與影片</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>從「%1」輸入</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>正在尋找照片和影片…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>找到 %Ln 個檔案</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>正在從手機中刪除…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 個項目無法讀取。</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>此手機上的內容均已輸入過。</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>沒有新照片</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>沒有照片或影片</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>已選擇 %Ln 項</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>輸入</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1/%2 個檔案</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>正在輸入…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>它們已與手機上的內容比對，位於 %1。</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>並非全部到達：下方的複製列表會說明原因。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>已輸入 %Ln 個照片和影片</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>在資料夾中顯示</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>從手機中刪除…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>輸入更多</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln 個檔案保留了下來，第一個的原因：%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>已從手機中刪除 %Ln 個照片和影片</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>要從手機中刪除 %Ln 個照片和影片嗎？</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>它們會立即消失，不會進入手機的「最近刪除」相簿。</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>刪除前會再次讀取此電腦上的每個副本。此操作無法還原。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>刪除</translation>
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
        <translation>Tessary：虛擬手機</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>結束 Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>仍在複製檔案。</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>同步仍在進行。</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>結束會取消此操作。已完整傳到的內容會保留。</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>輸入照片…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>仍在變更手機上的檔案。</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>結束會停止此操作。已完成的部分維持不變。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>關閉會停止此操作。已完成的部分維持不變。</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>適用於所有手機，無需設定。</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>更快，可見內容更多。需要在手機上開啟 USB 偵錯。</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>正在取得「%1」以便開啟…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>正在取得 %Ln 個檔案以便開啟…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開啟</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>在手機旁顯示此電腦</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>手機</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>輸入照片…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>立即同步</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>儲存空間</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>正在檢視佔用情況…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>同步的資料夾</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>無線</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>瀏覽照片</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>瀏覽檔案</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>釋放手機</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>此手機已鎖定</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>解鎖手機並在其 USB 通知中選擇「檔案傳輸」後即可顯示檔案。此視窗會自動更新。</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>匯入照片</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>此手機已鎖定</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>解鎖手機並在其 USB 通知中選擇「檔案傳輸」後即可顯示檔案。此視窗會自動更新。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>釋放手機</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>相機與照片</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下載項目</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>圖片</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音樂</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>影片與視訊</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文件</translation>
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
        <translation>上一項</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一項</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>上一頁</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>下一頁</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>「%1」太大，無法預覽。請先複製到此電腦。</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>無法顯示：檔案已損毀、過大或受保護。</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>僅顯示開頭</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>第 %1 頁，共 %2 頁</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>預覽</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1 位元組</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>包含項目</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>修改日期</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路徑</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>資料夾</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>內容</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 個項目</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>多種類型</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>停止統計</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>正在統計內容</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>檔案：%1，資料夾：%2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>統計已停止：可能還有更多內容。</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>無法讀取的資料夾：%1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
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
        <translation>關於</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>系統預設</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>選擇您偏好的顯示語言。更改會立即生效。</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>依上次關閉時的樣子打開視窗</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>自動檢查更新</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>檢查更新…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>瀏覽手機並雙向複製檔案。</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>網站</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>將每個副本與原件比較</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>副本重新讀取並確認一致後才算完成。這需要較長時間。</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>無線裝置…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>我的最愛</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>捷徑</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>儲存空間</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>已連接的裝置</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>沒有裝置</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>請以 USB 連接 iOS 或 Android 裝置</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>將資料夾拖到此處以便隨時開啟。</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>從我的最愛移除</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>從檔案管理員移除</translation>
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
        <translation>遞增</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>遞減</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>關閉此訊息</translation>
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
        <translation>在一側刪除的檔案，經詢問後也會在另一側刪除</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>檔案到達後從原處移除</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>同步此資料夾</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>雙向</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>僅到手機</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>僅到此電腦</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選擇…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>手機上的資料夾</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>顯示將要進行的動作</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>每次連接此手機時同步</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>編輯此配對</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>略過</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>每行一個模式，按 .gitignore 規則：*.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>儲存</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>尚無同步的資料夾。請打開手機上的一個資料夾，然後選擇「同步此資料夾…」。</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>排隊中</translation>
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
        <translation>移除此配對</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>要停止同步這些資料夾嗎？</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>兩側都不會刪除任何檔案。</translation>
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
        <translation>顯示將要進行的動作</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>報告…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>編輯…</translation>
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
        <translation>同步此資料夾…</translation>
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
        <translation>保持不變</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>將要進行的動作</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>動作</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>立即同步</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>正在比較資料夾…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>無法比較資料夾</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln 個檔案已經相同</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>需檢查 %Ln 個檔案，需複製 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>保留此電腦的版本</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>保留手機的版本</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>全部重新複製</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>在此電腦上</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>在手機上</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>要刪除的檔案</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>上次同步後已編輯</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>刪除</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>重新建立</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>要刪除檔案嗎？</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln 個檔案已在一側刪除。也要在另一側刪除嗎？</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>您保留的內容會複製回去。</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>資料夾遺失</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>此電腦上的資料夾已不存在</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>停止，不做任何變更</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>資料夾是空的</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>要將所有內容重新複製到那裡嗎？</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>全部重新複製</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>報告</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>執行紀錄</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>檔案列表</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>尚無報告。</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>執行內容</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>欄位</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>分頁</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>關閉分頁</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>即將完成：手機仍在儲存檔案</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩餘 %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>複製進行時 Tessary 已結束。</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 以及另外 %Ln 項</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln 個檔案</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>「%1」已複製。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>已複製 %Ln 個項目。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>「%1」未能複製。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%1 個項目中有 %Ln 個未能複製。</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>複製已完成</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>複製時發生錯誤</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>所有傳輸皆已結束</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>剩餘 %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>傳輸</translation>
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
        <translation>在資料夾中顯示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>繼續</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暫停</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>歷史記錄…</translation>
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
        <translation>名稱</translation>
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
        <translation>種類</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>資料夾</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>檢查更新…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>檢查更新失敗</translation>
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
        <translation>下載</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>略過此版本</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>稍後</translation>
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
        <translation>影片</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音樂</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>App</translation>
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
        <translation>連接手機</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>以虛擬手機試用</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>使用兩支含範例檔案的虛擬手機重新啟動 Tessary</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>插上手機</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>請使用傳輸線：有些線只能充電。</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>解鎖手機</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>鎖定的手機不會顯示任何儲存內容。</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>在手機上允許</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android：點按通知「透過 USB 為這部裝置充電」，然後選擇「檔案傳輸」。iPhone：點按「信任」。</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>釋放手機</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重試</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>正在配對…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在連線…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>已配對</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已連線</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>等待配對</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>可以連線</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>無線裝置</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>此網路中已開啟無線偵錯的手機。</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>正在搜尋手機…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>重新搜尋</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>此電腦無法在網路中搜尋手機：所需的服務（avahi-daemon）未執行。</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>請在手機的開發人員選項中開啟無線偵錯。手機必須與此電腦位於同一網路。</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>等待配對的手機會顯示六位數字的配對碼。</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>配對…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>連線</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>手機上顯示的六位數字：</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>配對</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
