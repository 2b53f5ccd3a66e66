<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>ClashQuestion</name>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Do the same for the other one</numerusform>
            <numerusform>Do the same for the other %Ln</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CopyText</name>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 and %Ln more</numerusform>
            <numerusform>%1 and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln of %1 items was not copied: %2</numerusform>
            <numerusform>%Ln of %1 items were not copied: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>Delete %Ln item?</numerusform>
            <numerusform>Delete %Ln items?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>and %Ln more</numerusform>
            <numerusform>and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>It will be moved to the trash.</numerusform>
            <numerusform>%Ln items will be moved to the trash.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>Delete the folder “%1” and the item in it?</numerusform>
            <numerusform>Delete the folder “%1” and the %Ln items in it?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 and %Ln more</numerusform>
            <numerusform>%1 and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%Ln of %1 items could not be moved: %2</numerusform>
            <numerusform>%Ln of %1 items could not be moved: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%Ln of %1 items could not be deleted: %2</numerusform>
            <numerusform>%Ln of %1 items could not be deleted: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>The folder on this computer is empty, although %Ln file was in it after the last sync. Is its disk missing?</numerusform>
            <numerusform>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>The folder on the phone is empty, although %Ln file was in it after the last sync. Is its memory card missing?</numerusform>
            <numerusform>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>More than half of the %Ln file of the last sync would be deleted.</numerusform>
            <numerusform>More than half of the %Ln files of the last sync would be deleted.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln file was left as it is</numerusform>
            <numerusform>%Ln files were left as they are</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln selected</numerusform>
            <numerusform>%Ln selected</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 of %Ln item</numerusform>
            <numerusform>%1 of %Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln entry could not be read.</numerusform>
            <numerusform>%Ln entries could not be read.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln copy broke off.</numerusform>
            <numerusform>%Ln copies broke off.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln file found</numerusform>
            <numerusform>%Ln files found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln entry could not be read.</numerusform>
            <numerusform>%Ln entries could not be read.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln chosen</numerusform>
            <numerusform>%Ln chosen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln photo or video imported</numerusform>
            <numerusform>%Ln photos and videos imported</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln file stayed, because: %1</numerusform>
            <numerusform>%Ln files stayed, the first because: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln photo or video deleted from the phone</numerusform>
            <numerusform>%Ln photos and videos deleted from the phone</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>Delete %Ln photo or video from the phone?</numerusform>
            <numerusform>Delete %Ln photos and videos from the phone?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>Fetching %Ln file to open it…</numerusform>
            <numerusform>Fetching %Ln files to open them…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1 byte</numerusform>
            <numerusform>%1 bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln file is the same already</numerusform>
            <numerusform>%Ln files are the same already</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln file to go through, %1 to copy</numerusform>
            <numerusform>%Ln files to go through, %1 to copy</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln file was deleted on one side. Delete it on the other, too?</numerusform>
            <numerusform>%Ln files were deleted on one side. Delete them on the other, too?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 and %Ln more</numerusform>
            <numerusform>%1 and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln file</numerusform>
            <numerusform>%1/%Ln files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln item is copied.</numerusform>
            <numerusform>%Ln items are copied.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln of %1 items was not copied.</numerusform>
            <numerusform>%Ln of %1 items were not copied.</numerusform>
        </translation>
    </message>
</context>
</TS>
