<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>フォルダへ移動…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新規フォルダ</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前を変更</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>ここにファイルをコピー…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>ここにフォルダをコピー…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべてを選択</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>絞り込み</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>リスト表示</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>グリッド表示</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>よく使う項目に追加</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>同期</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>プロパティ</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上のフォルダ</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
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
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>パスをコピー</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>移動先を選択…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>コピー先を選択…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>複製を作成</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>選択を反転</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>アイコンを大きく</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>アイコンを小さく</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>アイコンを標準サイズに</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>隠しファイル</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>コンピュータにコピー</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>このフォルダ以下を検索</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>日ごとにグループ化</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>その日をすべて選択</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>新しいタブで開く</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>新規フォルダ</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>新規フォルダ %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 バイト</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>すでに存在します</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>「%1」はすでに存在します。</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>新しい項目: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>既存の項目: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>置き換えるとフォルダは結合され、同じ名前のファイルは置き換えられます。</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換える</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>両方を残す</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>スキップ</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>残りの%Ln項目にも同じ操作をする</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>空き容量が不足しています</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>このコピーに必要な空き容量がありません。</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>少なくとも %1 が必要ですが、「%3」の空きは %2 です。</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>%1 が必要ですが、「%3」の空きは %2 です。</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>それでもコピー</translation>
    </message>
</context>
<context>
    <name>CopyText</name>
    <message>
        <source>%1 (%2)</source>
        <extracomment>the name of an item, and why it was left out</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the items of a list</comment>
        <translation>、</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1、ほか %Ln 項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%1 項目中 %Ln 項目がコピーされませんでした: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>%Ln 項目を削除しますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>フォルダ「%1」を削除しますか？</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>「%1」を削除しますか？</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>ほか %Ln 項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>%Ln 項目がゴミ箱に移動されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>すぐに消え、デバイスのアルバム「最近削除した項目」には入りません。</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>この操作は取り消せません。</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>フォルダ「%1」とその中の %Ln 項目を削除しますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>まだコピー中です。まだ読み取られていないものは、コピー先に残りません。</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>「%1」へのコピーを元に戻します。</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>イメージ</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>ビデオ</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>オーディオ</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>書類</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>アーカイブ</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>APK パッケージ</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>ソースコード</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>iOS ファイル転送</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>標準 MTP</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>ターボモード (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>アップロード</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>進行中</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>キャンセル済み</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>内部ストレージ</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>SDカード</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>USBドライブ</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%2 中 %1 空き</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>デバイスに移動</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>デバイスへのみ</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>このコンピュータに移動</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>このコンピュータへのみ</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>双方向</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>書類</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>写真とビデオ</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>ストレージ %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>一部未完了</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>日付なし</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今日</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨日</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>問題が発生しました。</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>問題が発生しました</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>。</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>ほかのプログラムがデバイスを使用しています。</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>デバイスを接続し直し、ロックを解除してください。</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>先に名前を変更してください。</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>デバイスのロックを解除し、デバイス上で「ファイル転送」を選んでください。</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>もう一度お試しください。解決しない場合は、デバイスをいったん外して接続し直してください。</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>デバイスが接続されていません。</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>デバイスが取り外されました。</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>デバイスが応答しません。</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>ロックを解除してください。解決しない場合は、いったん外して接続し直してください。</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>デバイスとの接続が切れました。</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 がデバイスを使用しています。</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>それを終了するか、デスクトップのファイルマネージャでデバイスをアンマウントしてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>このユーザにはデバイスの USB を開く権限がありません。</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Tessary に付属する udev ルールをインストールし、デバイスを接続し直してください。</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>デバイスがこのコンピュータをまだ許可していません。</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>デバイスのロックを解除し、表示される確認で「信頼」または「許可」をタップしてください。</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>デバイスがこのコンピュータの登録を失いました。</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>デバイスをいったん外して接続し直し、デバイス上で「信頼」をタップしてください。</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>デバイスがロックされています。</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>デバイスのロックを解除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>デバイスのストレージを利用できません。</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>デバイスが接続を終了しました。</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>デバイスに接続できません。</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>ケーブルまたはネットワークを確認してください。Androidでは、ターボモードにはUSBデバッグが必要ですが、標準 MTPには不要です。</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>デバイスの応答が正しくありません。</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>デバイスをいったん外して接続し直してください。</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>デバイスは別のコピーを処理中です。</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>完了してからもう一度お試しください。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>デバイスに「%1」はありません。</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>デバイスにもうありません</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>削除または名前変更された可能性があります。フォルダを再読み込みしてください。</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>「%1」はすでにあります。</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>その名前はすでに使われています</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>デバイスには「%1」があり、「%2」は同じ名前とみなされます。</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>デバイスは別の項目と同じ名前とみなします</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>先にどちらかの名前を変更してください。</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>「%1」はフォルダではありません。</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>フォルダではありません</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>「%1」はファイルではありません。</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>フォルダ「%1」は空ではありません。</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>フォルダが空ではありません</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>「%1」はデバイスでは名前として使えません。</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>デバイスではこの名前を使えません</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>デバイスは「%1」に対するこの操作を許可していません。</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>デバイスが許可していません</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>ロックを解除し、別のフォルダでお試しください。</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>「%1」はデバイス上で書き込み禁止です。</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>デバイス上で書き込み禁止です</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>別のフォルダを選んでください。</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>「%1」はデバイスのこのストレージには大きすぎます。</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>デバイスのこのストレージには大きすぎます</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>「%1」はその間にデバイス上で変更されました。そのまま残しました。</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>その間にデバイス上で変更されました</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>フォルダを再読み込みして、もう一度お試しください。</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>「%1」を読み取れません。</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>読み込めません</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>フォルダ「%1」をすべて読み取れません。</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>フォルダをすべて読み取れません</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>デバイスは「%1」の%3バイトのうち%2バイトを送信しました。</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>サイズが通知されたものと異なります</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>もう一度コピーしてください。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>フォルダ「%1」をそれ自身の中に置くことはできません。</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>フォルダをそれ自身の中に置くことはできません</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>ストレージ全体を1つの項目として変更またはコピーすることはできません。</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>ストレージ全体を1つの項目として変更またはコピーすることはできません</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>デバイスは「%1」を別のストレージに移動できません。</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>デバイスは別のストレージに移動できません</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>代わりにコピーしてください。</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>このデバイスではこの操作はできません。</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>デバイスはこの操作に対応していません</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>デバイスが「%1」に対する操作を拒否しました。</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>デバイスが拒否しました</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>デバイスは了承しましたが、「%1」には何も行われませんでした。</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>デバイスは了承しましたが、何も行われませんでした</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>デバイスのストレージがいっぱいです。</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>デバイスのストレージがいっぱいです</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>デバイス上の不要なものを削除するか、コピーする量を減らしてください。</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>「%1」を読み取れません: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>「%1」に書き込めません: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>このコンピュータに書き込めません</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>フォルダ「%1」を作成できません: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>このコンピュータにフォルダを作成できません</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>「%1」を削除できません: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>このコンピュータで削除できません</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>「%1」の名前を変更できません: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>このコンピュータで名前を変更できません</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>「%1」はこのコンピュータにもうありません。</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>このコンピュータにもうありません</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>「%1」は通常のファイルではありません。</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>ファイル「%1」があるべき場所にフォルダがあります。</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>このコンピュータに同じ名前のフォルダがあります</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>フォルダ「%1」があるべき場所にファイルがあります。</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>このコンピュータに同名のファイルがあります</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>「%1」はコピー中に変更されました。</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>コピー中に変更されました</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>「%1」という名前はこのコンピュータでは使えません。</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>このコンピュータでは使えない名前です</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>「%1」という名前はこのコンピュータには長すぎます。</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>このコンピュータには名前が長すぎます</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>「%1」はコピー先フォルダの外を指しています。</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>コピー先フォルダの外を指しています</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>「%1」はリンクです。リンクはたどりません。</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>リンクです。リンクはたどりません</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>「%1」のディスクに空き容量がありません。</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>このコンピュータのディスクに空き容量がありません</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>そこで何かを削除するか、別のフォルダを選んでください。</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>adb をインストールするか、デバイスを標準 MTP に切り替えてください。</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>USBデバッグ用のこのコンピュータの鍵を使用できません。</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>デバイスを標準 MTPに切り替えてください。</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>adbのサーバーが応答しません。</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb がインストールされていません。</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adbがデバイスに接続できません。</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>デバイスのUSBデバッグをオンにするか、標準 MTPに切り替えてください。</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adbが複数のデバイスに接続しており、対象を判別できません。</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>ほかのデバイスを外すか、標準 MTPに切り替えてください。</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>adbではデバイスがオフラインです。</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>いったん外して接続し直すか、USBデバッグをオフにしてからオンにしてください。</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>デバイスのAndroidはターボモードには古すぎます。</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>「%1」という名前は有効なテキストではありません。</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>名前が有効なテキストではありません</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>「%1」のパスが長すぎます。</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>パスが長すぎます</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>しばらくしてからもう一度お試しください。</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>サーバーが時間内に応答しませんでした。</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>サーバーの応答が長すぎます。</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>サーバーのアドレスは安全ではありません。</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>サーバーがリダイレクトを繰り返しています。</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>サーバーの応答が途中で切れました。</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>サーバーに接続できません: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>サーバーに接続できません</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>サーバーがエラー %1 を返しました。</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>サーバーがエラーを返しました</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>サーバーの応答が正しくありません。</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>このコンピュータのadbはペア設定に対応していません。</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>バージョン30以降が必要です。</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adbがデバイスに接続できませんでした: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adbがデバイスに接続できませんでした</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>ロックを解除し、デバッグの確認で「許可」をタップしてください。</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>ターボモードに必要な adb がインストールされていません。代わりに標準 MTP を使います。</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>フォルダの同期中に「%1」が変更されました。そのままにしてあります。</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>同期中に変更されました</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>「%1」は一方ではファイル、もう一方ではフォルダです。</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>片方ではファイル、もう片方ではフォルダです</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>「%1」と大文字小文字または文字の形だけが違う名前があります。</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>大文字小文字または文字の表現だけが異なる名前が別にあります</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>一方でフォルダ「%1」の中身を読み取れませんでした。</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>一方でそのフォルダを読み取れませんでした</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>「%1」のフォルダに読み取れない項目があります。</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>そのフォルダに読み取れない項目があります</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>「%1」はコピー先側で変更されました。</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>コピー先側で変更されました</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>「%1」はそのままにしました。</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>そのままにするよう選ばれました</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>デバイスが「%1」のサイズを返しません。</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>デバイスがサイズを返しません</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>デバイスに「%1」という項目が複数あります。</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>デバイスに同じ名前の項目が複数あります</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>フォルダ「%1」の階層が深すぎます。</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>フォルダの階層が深すぎます</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>何も変更していません。</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>以前に同期したフォルダ「%1」がなくなっています。</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>そのディスクを接続するか、フォルダを作り直してください。</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>同期した内容を「%1」に記録できませんでした。</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>同期した内容を記録できませんでした</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>次回の同期ではその後の削除が分からず、それらのファイルをコピーし直します。</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>そのディスクで何かを削除してください。転送中のファイルはそこに置かれます。</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>「%1」の内容はほかのユーザーが変更できます。</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>フォルダの内容をほかのユーザーが変更できます</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>ほかのユーザーがそのフォルダに書き込めないようにしてください。</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>「%1」のコピーは元のファイルと一致しなかったため、取り除かれました。</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>コピーが元のファイルと一致しませんでした</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>「%1」はコピー後に変更されました。そのまま残しました。</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>コピー後に変更されました</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>不要な場合は、ご自分で削除してください。</translation>
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
        <translation>ワイヤレスデバイス…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary を終了</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全画面表示</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>コピーの履歴…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>新規ウインドウ</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>新しいタブ</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>タブを閉じる</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>次のタブ</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>前のタブ</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>フォルダを読み取れませんでした。</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>再試行するには、再読み込みしてください。</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>アプリを読み取れませんでした。</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>再試行するには、一覧を再読み込みしてください。</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>一つ上のフォルダに移動してください。</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>入力を確認するか、下からフォルダを選択してください。</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>別のフォルダが表示されているため、何も行いませんでした。</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>「%1」を作成できませんでした: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>「%1」の名前を変更できませんでした: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>「%1」を移動できませんでした: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>「%1」を削除できませんでした: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>the name of an item, and why it failed</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the items of a list</comment>
        <translation>、</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1、ほか %Ln 項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%1 項目中 %Ln 項目を移動できませんでした: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%1 項目中 %Ln 項目を削除できませんでした: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>フォルダ「%1」はデバイスにもうありません。</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>デバイスに「%1」はありません。</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>「%1」を取得できませんでした: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>検索を中止しました。それまでに見つかったものを表示しています。</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>「%1」を開けませんでした: 対応するプログラムが見つからないか、起動しませんでした。</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>ここではフォルダをほかのプログラムへドラッグできません。</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>先にこのコンピュータへコピーしてください。</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>「%1」のコピーには、ドラッグ中では間に合わない時間がかかります。</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>はい(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>いいえ(&amp;N)</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>デバイスを解放</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>デバイスを解放するために、次のプログラムを終了します: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>それらが行っているコピーは中断され、表示中のデバイスのフォルダは閉じられます。デバイス上のファイルへの未保存の変更は失われることがあります。</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>プログラムを終了</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>ファイルマネージャーで開く</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>このコンピュータのフォルダ</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>デバイスにコピー</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>デバイスで置き換える</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>このコンピュータにコピー</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>このコンピュータで置き換える</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>デバイスに移動</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>このコンピュータに移動</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>両方のバージョンを残す</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>デバイスで削除</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>このコンピュータで削除</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>デバイスで名前を変更</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>このコンピュータで名前を変更</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>デバイスに接続中…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>ほかの同期を待っています…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>フォルダを調べています…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>削除の確認待ち…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>ファイルを分析中…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>転送を開始しています…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>アップロード中</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>ダウンロード中</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>移動中</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>移動中 (移動先にすでにあります)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>最新の状態</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>新しいファイルと変更されたファイルが双方向にコピーされます。片方で削除されたファイルは、同意後にもう片方でも削除されます。</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>新しいファイルと変更されたファイルが双方向にコピーされます。片方で削除されたファイルはコピーし直されます。</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>ファイルはデバイスに移動されます。届いたものから、ここでは削除されます。</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>新しいファイルと変更されたファイルがデバイスにコピーされます。何も削除されません。</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>ファイルはここに移動されます。届いたものから、デバイスでは削除されます。</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>デバイスの新しいファイルと変更されたファイルがここにコピーされます。何も削除されません。</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>削除中</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>前回の同期後には %Ln 個のファイルがあったのに、このコンピュータのフォルダは空です。ディスクが外れていませんか？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>前回の同期後には %Ln 個のファイルがあったのに、デバイスのフォルダは空です。メモリカードが外れていませんか？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>前回同期した %Ln 個のファイルの半分以上が削除されます。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>キャンセル済み</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln 個のファイルはそのままにしました</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>%1 との同期は完了しませんでした。</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>%1 との同期では、一部のファイルをそのままにしました。</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>デバイスにコピーしました</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>デバイスで置き換えました</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>このコンピュータにコピーしました</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>このコンピュータで置き換えました</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>デバイスに移動しました</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>このコンピュータに移動しました</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>両方のバージョンを残しました</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>デバイスで削除しました</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>このコンピュータで削除しました</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>デバイスで名前を変更しました</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>このコンピュータで名前を変更しました</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>絞り込み…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>アプリを検索中…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>ファイルを共有するアプリがありません</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>一致するアプリがありません</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>絞り込みを解除</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>接続に失敗しました</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>コンピュータから開けるのは、開発元がファイル共有を有効にしたアプリだけです。写真とビデオは開けます。</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>写真とビデオ</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>カメラで撮影したものと、一緒に保存されたもの</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>間のフォルダ</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>表示方法</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>絞り込み…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>絞り込みを解除</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>デバイスにコピー</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>フォルダ以下を検索…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>その他のコマンド</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln 項目を選択</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>よく使う項目から削除</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%Ln 項目中 %1 項目</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%2件中%1件完了（Escで中止）</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>よく使う項目に追加</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>「%1」へ</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>検索中…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Esc で中止)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>コピー先</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>ファイルをデバイスにコピー</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>フォルダをデバイスにコピー</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>移動先</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>ここに移動</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>ここにコピー</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>コピーの履歴</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>コピーを検索</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>コピーされなかったもの</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダに表示</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>履歴を消去…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>まだ何もコピーされていません。</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>この検索に一致するコピーはありません。</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>履歴を消去</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>コピーの記録を消去しますか？</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>コピーされたファイルは残ります。途中で切れたコピーの再開は提案されなくなります。</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>確認が必要です</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>バッテリー %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>ロック中: 解除してください</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>接続中…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>ストレージを読み込み中…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>ファイルマネージャーで開いています</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>アプリケーションで開く</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>アプリケーションを検索中…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>開けるアプリケーションがありません</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>名前の変更を元に戻す</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>移動を元に戻す</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>新規フォルダの作成を元に戻す</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>コピーを元に戻す</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>%1 個のフォルダをそれぞれ別のタブで開きますか？</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>ここに移動</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>ここにコピー</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>詳細</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>詳細をコピー</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>ファイルを取得しています</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>フォルダ名</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>デバイスからのコピー先</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>ファイルのダブルクリック</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>新しいデバイスのファイルの表示</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>毎回確認するフォルダ</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>プレビューを表示</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>このコンピュータにコピー</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>リスト</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>常に同じフォルダ</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>ターボモードの使用</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>対応するすべてのデバイスで使う</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>選択したデバイスでのみ使う</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>新規フォルダ…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>ストレージ</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上のフォルダ</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>ここにフォルダはありません。</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新規フォルダ</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>新規フォルダの名前：</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>デバイスが取り外されました</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>デバイスを接続し直し、ロックを解除してください。</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>もう一度接続し、ロックを解除して「ファイル転送」を選択してください。</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>接続に失敗しました</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>フォルダが見つかりません</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>このフォルダはデバイス上に見つかりません。削除または移動された可能性があります。よく使う項目から削除しますか？</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>よく使う項目から削除</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>残す</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>デバイス上で削除または移動された可能性があります。</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>上のフォルダ</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>フォルダの内容を読み込み中…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>デバイスのストレージを読み込み中…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>一致するファイルがありません</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>名前に「%1」を含む項目はありません。</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>絞り込みを解除</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>隠しファイルだけがあります</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>名前がドットで始まるファイルです。</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>隠しファイルを表示</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>このフォルダは空です</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>ここにファイルをドロップするとデバイスにコピーされます。</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>「%1」を検索中…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>このフォルダ以下に、名前に「%1」を含むものはありません。</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>フォルダを表示</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>ここにファイルをドロップするとこのフォルダにコピーされます。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 項目を読み取れませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>このフォルダにファイルをコピーしています…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>コピーが終わると表示されます。</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>設定を読み取れませんでした。初期設定で続行します。</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>ファイルが壊れています：%1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>壊れたファイルは残してあります：%1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>設定を保存できませんでした：%1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Tessary の終了まで有効で、変更のたびに保存を再試行します。</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>このコンピュータの別のアプリケーションもデバイスを開いています。</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>ここにデバイスのファイルが表示されないときは、そのアプリケーションに解放させてください。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>デバイスを解放</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>レポートを表示</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>「%1」のコピーが途中で切れました。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln 件のコピーが途中で切れました。</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>デバイスが戻りました。届いた分は再びコピーされません。</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>コピーを続ける</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>「%1」をファイルマネージャーで開けませんでした。</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>このコンピュータでは利用者が何もマウントできません。FUSE がインストールされていない可能性があります。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>デバイスを接続し、ロックを解除してください。Android では USB の通知で「ファイル転送」を選択し、iPhone では「信頼」をタップしてください。</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>ウインドウの外にファイルをドラッグするとこのコンピュータに、中にドラッグするとデバイスにコピーされます。</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 でこのコンピュータのフォルダがデバイスのフォルダの横に表示されます。ドラッグまたはペーストでコピーできます。</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>「写真を読み込む…」はカメラの新しい写真を取り込み、「同期」はここのフォルダとデバイスのフォルダを同じ状態に保ちます。</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>ドラッグ中は、Ctrl でコピー、Shift で移動、Alt で確認します。</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>はじめに</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>読み込み済みのものも表示</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>1 日ごとに 1 フォルダ</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>写真とビデオ</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>%1 から読み込む</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>写真とビデオを探しています…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln 個のファイルが見つかりました</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>デバイスから削除中…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln 項目を読み取れませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>このデバイスのものはすべて読み込み済みです。</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>新しい写真はありません</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>写真もビデオもありません</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln 個を選択</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>読み込む</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1/%2 個のファイル</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>デバイスのものと照合済みで、%1 にあります。</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>すべては届きませんでした。理由は下のコピーの一覧にあります。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln 個の写真とビデオを読み込みました</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダに表示</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>デバイスから削除…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>さらに読み込む</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln 個のファイルが残りました。最初の理由：%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>デバイスから %Ln 個の写真とビデオを削除しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>デバイスから %Ln 個の写真とビデオを削除しますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>すぐに消え、デバイスのアルバム「最近削除した項目」には入りません。</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>その前に、このコンピュータ上の各コピーをもう一度読み取ります。この操作は取り消せません。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary: 仮想デバイス</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary を終了</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>ファイルをまだコピーしています。</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>同期がまだ実行中です。</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>終了するとキャンセルされます。完全に届いたものは残ります。</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>写真を読み込む…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>デバイスのファイルをまだ変更しています。</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>終了すると中止されます。済んだものは元に戻りません。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>閉じると中止されます。済んだものは元に戻りません。</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>どのデバイスでも設定なしで使えます。</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>高速で、より多くの項目を表示します。デバイスのUSBデバッグが必要です。</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>「%1」を開くために取得しています…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>%Ln 個のファイルを開くために取得しています…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>このコンピュータをデバイスの横に表示</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>写真を読み込む…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>今すぐ同期</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>ストレージ</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>使用内訳を調べています…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>同期しているフォルダ</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>ワイヤレス</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>写真を表示</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>ファイルを表示</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>デバイスを解放</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>このデバイスはロックされています</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>ロックを解除し、USB の通知で「ファイル転送」を選ぶとファイルが表示されます。このウインドウは自動的に更新されます。</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>写真を取り込む</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>このデバイスはロックされています</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>ロックを解除し、USB の通知で「ファイル転送」を選ぶとファイルが表示されます。このウインドウは自動的に更新されます。</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>デバイスを解放</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>カメラと写真</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>ピクチャ</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>ミュージック</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>ムービーとビデオ</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>書類</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>キャンセル済み</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>前の項目</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次の項目</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>前のページ</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>次のページ</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>「%1」は大きすぎてプレビューできません。先にこのコンピュータへコピーしてください。</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>表示できません。壊れているか、大きすぎるか、保護されています。</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>先頭のみ表示</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>%1 / %2ページ</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1バイト</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>変更日</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダ</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>プロパティ</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 項目</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>さまざまな種類</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>数えるのを中止</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>内容を数えています</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>ファイル: %1、フォルダ: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>途中で中止したため、まだほかにもある可能性があります。</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>読み込めなかったフォルダ: %1</translation>
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
        <translation>同期</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>About</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>システムの言語</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>表示言語を選択してください。変更はすぐに反映されます。</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>前回の状態でウインドウを開く</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>アップデートを自動的に確認</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>バージョン</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>デバイスの中身を見て、ファイルを双方向にコピーできます。</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>ウェブサイト</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>コピーを元のファイルと照合する</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>コピーは読み直して一致を確認してから完了となります。時間がかかります。</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>ワイヤレスデバイス…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>よく使う項目</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>ストレージ</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>接続中のデバイス</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>デバイスなし</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>iOS または Android デバイスを USB で接続してください</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>フォルダをここにドロップするとすぐに開けます。</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>よく使う項目から削除</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>ファイルマネージャーから取り除く</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>昇順</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降順</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>このメッセージを閉じる</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>%1 の同期</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>片方で削除されたファイルは、確認のうえもう片方でも削除されます</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>届いたファイルを元の場所から取り除く</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>このフォルダを同期</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>双方向</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>デバイスへのみ</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>このコンピュータへのみ</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>デバイスのフォルダ</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>実行内容を表示</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>このデバイスが接続されるたびに同期</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>この組み合わせを編集</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>除外</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>1 行に 1 パターン、.gitignore の規則: *.tmp, /private/</translation>
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
        <translation>同期しているフォルダはまだありません。デバイスのフォルダを開き、「このフォルダを同期…」を選択してください。</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>今すぐ同期</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>この組み合わせを取り除く</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>これらのフォルダの同期をやめますか？</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>どちらの側でもファイルは削除されません。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>取り除く</translation>
    </message>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>まだ同期していません</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>実行内容を表示</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>レポート…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>編集…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>同期</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>このフォルダを同期…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>すべて同期</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>そのままにする</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>実行内容</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>今すぐ同期</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>フォルダを比較しています…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>フォルダを比較できません</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln 個のファイルはすでに同じです</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>確認するファイル %Ln 個、コピーする量 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>このコンピュータのものを残す</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>デバイスのものを残す</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>すべてコピーし直す</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>このコンピュータ上</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>デバイス上</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>削除するファイル</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>前回の同期後に編集</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>残す</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>作り直す</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>ファイルを削除しますか？</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln 個のファイルが片方で削除されました。もう片方でも削除しますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>残したものは元の側へコピーし直されます。</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>フォルダがありません</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>このコンピュータのフォルダがなくなりました</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>何も変更せずに停止</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>フォルダが空です</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>すべてをそこへコピーし直しますか？</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>すべてコピーし直す</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>レポート</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>実行履歴</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>レポートはまだありません。</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>実行した内容</translation>
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
        <translation>タブ</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>タブを閉じる</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>仕上げ中: デバイスがファイルを保存しています</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>残り %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>このコピーの途中で Tessary が終了しました。</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1、ほか %Ln 項目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln ファイル</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>「%1」をコピーしました。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln 項目をコピーしました。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>「%1」はコピーされませんでした。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%1 項目中 %Ln 項目がコピーされませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>コピーが完了しました</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>コピー中に問題が発生しました</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>すべての転送が終了しました</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>残り %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>転送</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>すべてキャンセル</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>完了分を消去</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>フォルダに表示</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>再開</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>履歴…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下へ移動</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>変更日</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダ</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>アップデートの確認に失敗しました</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 は現在の最新バージョンです。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>新しいバージョンの Tessary が利用可能です。</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 が利用可能です</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>このバージョンをスキップ</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>後で</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>写真</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>ビデオ</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>ミュージック</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>使用中</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>空き</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>デバイスを接続</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>仮想デバイスで試す</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>サンプルファイルの入った 2 台の仮想デバイスで Tessary を起動し直します</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>接続する</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>データ通信のできるケーブルを使ってください。充電専用のものもあります。</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>ロックを解除する</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>ロックされたデバイスの中身は表示されません。</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>デバイスで許可する</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android：「このデバイスを USB で充電中」の通知をタップし、「ファイル転送」を選びます。iPhone：「信頼」をタップします。</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>デバイスを解放</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>再試行</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>ペア設定中…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>接続中…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>ペア設定済み</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>接続済み</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>ペア設定を待っています</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>接続できます</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>ワイヤレスデバイス</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>このネットワークでワイヤレスデバッグがオンになっているデバイスです。</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>デバイスを探しています…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>もう一度探す</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>このコンピュータではネットワーク上のデバイスを探せません。必要なサービス (avahi-daemon) が動作していません。</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>デバイスの開発者向けオプションでワイヤレスデバッグをオンにしてください。このコンピュータと同じネットワークに接続されている必要があります。</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>ペア設定を待っているデバイスには6桁のコードが表示されます。</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>ペア設定…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>デバイスに表示されている6桁の数字:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>ペア設定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
</TS>
