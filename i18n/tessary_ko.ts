<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>뒤로</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>앞으로</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>폴더로 이동…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>새로고침</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>새 폴더</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>이름 변경</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>여기에 파일 복사…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>여기에 폴더 복사…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>전체 선택</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>필터</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>목록으로</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>격자로</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>즐겨찾기에 추가</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>앱</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>동기화</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>속성</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>상위 폴더</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>미리 보기</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>복사</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>붙여넣기</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>실행 취소</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>잘라내기</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>경로 복사</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>이동할 폴더 선택…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>복사할 폴더 선택…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>복제</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>선택 반전</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>아이콘 크게</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>아이콘 작게</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>기본 크기 아이콘</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>숨김 파일</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>컴퓨터로 복사</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>이 폴더 아래에서 검색</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>날짜별로 묶기</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>그날 모두 선택</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>새 탭에서 열기</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>새 폴더</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>새 폴더 %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 바이트</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>이미 있음</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1” 항목이 이미 있습니다.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>새 항목: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>기존 항목: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>대치하면 폴더가 병합되고 이름이 같은 파일은 대치됩니다.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>대치</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>둘 다 유지</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>건너뛰기</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>나머지 %Ln개에도 동일하게 적용</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>공간 부족</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>이 복사에 필요한 공간이 부족합니다.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>최소 %1이(가) 필요하지만 “%3”의 여유 공간은 %2입니다.</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>%1이(가) 필요하지만 “%3”의 여유 공간은 %2입니다.</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>그래도 복사</translation>
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
        <translation>, </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 외 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%1개 항목 중 %Ln개를 복사하지 못했습니다: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>항목 %Ln개를 삭제하시겠습니까?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>폴더 “%1”을(를) 삭제하시겠습니까?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>“%1”을(를) 삭제하시겠습니까?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>외 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>항목 %Ln개가 휴지통으로 이동됩니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>즉시 사라지며 휴대폰의 “최근 삭제된 항목” 앨범으로 가지 않습니다.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>이 작업은 취소할 수 없습니다.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>폴더 “%1”과(와) 그 안의 항목 %Ln개를 삭제하시겠습니까?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>아직 복사 중입니다. 아직 읽지 않은 항목은 복사본에 남지 않습니다.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>“%1”(으)로 복사한 작업을 취소합니다.</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>폴더</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>이미지</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>동영상</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>오디오</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>문서</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>압축 파일</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>APK 패키지</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>소스 코드</translation>
    </message>
    <message>
        <source>File</source>
        <translation>파일</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>iOS 파일 전송</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>표준 MTP</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>터보 모드(ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>업로드</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>다운로드</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>대기 중</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>진행 중</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>완료됨</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>실패</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>취소됨</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>내부 저장소</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>SD 카드</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>USB 드라이브</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%2 중 %1 사용 가능</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>휴대폰으로 이동</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>휴대폰으로만</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>이 컴퓨터로 이동</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>이 컴퓨터로만</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>양방향</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>문서</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>사진 및 비디오</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>저장소 %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>복사</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>일시 정지됨</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>일부만 완료됨</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>날짜 없음</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>오늘</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>어제</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>문제가 발생했습니다.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>문제가 발생했습니다</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>다른 프로그램이 휴대폰을 사용 중입니다.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>휴대폰을 다시 연결하고 잠금을 해제하세요.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>먼저 이름을 바꾸세요.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>휴대폰의 잠금을 해제하고 휴대폰에서 “파일 전송”을 선택하세요.</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>다시 시도하세요. 그래도 안 되면 휴대폰을 뽑았다가 다시 연결하세요.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>휴대폰이 연결되어 있지 않습니다.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>휴대폰 케이블이 뽑혔습니다.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>휴대폰이 응답하지 않습니다.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>잠금을 해제하세요. 그래도 안 되면 뽑았다가 다시 연결하세요.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>휴대폰과의 연결이 끊어졌습니다.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1이(가) 휴대폰을 사용 중입니다.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>그 프로그램을 닫거나 데스크톱 파일 관리자에서 휴대폰 마운트를 해제한 뒤 다시 시도하세요.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>이 사용자는 휴대폰의 USB 기기를 열 수 없습니다.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Tessary에 포함된 udev 규칙을 설치한 뒤 휴대폰을 다시 연결하세요.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>휴대폰이 아직 이 컴퓨터를 허용하지 않았습니다.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>휴대폰의 잠금을 해제하고 표시되는 질문에서 “신뢰” 또는 “허용”을 누르세요.</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>휴대폰이 이 컴퓨터를 더 이상 기억하지 못합니다.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>휴대폰을 뽑았다가 다시 연결하고 휴대폰에서 “신뢰”를 누르세요.</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>휴대폰이 잠겨 있습니다.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>휴대폰의 잠금을 해제하고 다시 시도하세요.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>휴대폰의 저장소를 사용할 수 없습니다.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>휴대폰이 연결을 끊었습니다.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>휴대폰에 연결할 수 없습니다.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>케이블이나 네트워크를 확인하세요. Android에서는 터보 모드에 USB 디버깅이 필요하며, 표준 MTP에는 필요하지 않습니다.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>휴대폰의 응답이 올바르지 않습니다.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>휴대폰을 뽑았다가 다시 연결하세요.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>휴대폰이 다른 복사를 처리하고 있습니다.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>끝난 뒤에 다시 시도하세요.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>휴대폰에 “%1”이(가) 없습니다.</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>휴대폰에 더 이상 없습니다</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>삭제되었거나 이름이 바뀌었을 수 있습니다. 폴더를 새로 고치세요.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1”이(가) 이미 있습니다.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>이름이 이미 사용 중입니다</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>휴대폰에 “%1”이(가) 있으며, “%2”은(는) 같은 이름으로 간주됩니다.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>휴대폰이 다른 항목과 같은 이름으로 간주합니다</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>먼저 둘 중 하나의 이름을 바꾸세요.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>“%1”은(는) 폴더가 아닙니다.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>폴더가 아닙니다</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>“%1”은(는) 파일이 아닙니다.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>파일이 아닙니다</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>폴더 “%1”이(가) 비어 있지 않습니다.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>폴더가 비어 있지 않습니다</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>“%1”은(는) 휴대폰에서 이름으로 쓸 수 없습니다.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>휴대폰에서 허용하지 않는 이름입니다</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>휴대폰이 “%1”에 대한 이 작업을 허용하지 않습니다.</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>휴대폰이 허용하지 않습니다</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>잠금을 해제하고 다른 폴더로 시도하세요.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>“%1”은(는) 휴대폰에서 쓰기 금지되어 있습니다.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>휴대폰에서 쓰기 금지되어 있습니다</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>다른 폴더를 선택하세요.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>“%1”은(는) 휴대폰의 이 저장소에 너무 큽니다.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>휴대폰의 이 저장소에 너무 큽니다</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>“%1”이(가) 그사이 휴대폰에서 변경되었습니다. 그대로 두었습니다.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>그사이 휴대폰에서 변경되었습니다</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>폴더를 새로 고친 뒤 다시 시도하세요.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>“%1”을(를) 읽을 수 없습니다.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>읽을 수 없음</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>폴더 “%1”을(를) 모두 읽을 수 없습니다.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>폴더를 모두 읽을 수 없습니다</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>휴대폰이 “%1”의 %3바이트 중 %2바이트를 보냈습니다.</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>크기가 알려진 것과 다릅니다</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>다시 복사하세요.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>폴더 “%1”은(는) 자기 자신 안에 있을 수 없습니다.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>폴더는 자기 자신 안에 있을 수 없습니다</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>저장소 전체를 한 항목으로 변경하거나 복사할 수 없습니다.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>저장소 전체를 한 항목으로 변경하거나 복사할 수 없습니다</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>휴대폰이 “%1”을(를) 다른 저장소로 이동할 수 없습니다.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>휴대폰이 다른 저장소로 이동할 수 없습니다</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>대신 복사하세요.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>이 휴대폰에서는 할 수 없는 작업입니다.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>휴대폰에서 할 수 없는 작업입니다</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>휴대폰이 “%1”에 대한 작업을 거부했습니다.</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>휴대폰이 거부했습니다</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>휴대폰이 수락했지만 “%1”에는 아무 일도 일어나지 않았습니다.</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>휴대폰이 수락했지만 아무 일도 일어나지 않았습니다</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>휴대폰의 저장소가 가득 찼습니다.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>휴대폰의 저장소가 가득 찼습니다</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>휴대폰에서 일부를 삭제하거나 복사할 양을 줄이세요.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>“%1”을(를) 읽을 수 없습니다: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>“%1”을(를) 쓸 수 없습니다: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>이 컴퓨터에 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>폴더 “%1”을(를) 만들 수 없습니다: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>이 컴퓨터에 폴더를 만들 수 없음</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>“%1”을(를) 삭제할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>이 컴퓨터에서 삭제할 수 없습니다</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>“%1”의 이름을 바꿀 수 없습니다: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>이 컴퓨터에서 이름을 바꿀 수 없습니다</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>“%1”은(는) 이 컴퓨터에 더 이상 없습니다.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>이 컴퓨터에 더 이상 없습니다</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>“%1”은(는) 일반 파일이 아닙니다.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>일반 파일이 아님</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>파일 “%1”이(가) 있어야 할 곳에 폴더가 있습니다.</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>이 컴퓨터에 이 이름의 폴더가 있음</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>폴더 “%1”이(가) 있어야 할 곳에 파일이 있습니다.</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>이 컴퓨터에 같은 이름의 파일이 있습니다</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>“%1”이(가) 복사 중에 변경되었습니다.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>복사 중에 변경되었습니다</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>“%1”은(는) 이 컴퓨터에서 이름으로 쓸 수 없습니다.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>이 컴퓨터에서 쓸 수 없는 이름임</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>“%1”은(는) 이 컴퓨터에서 쓰기에 너무 긴 이름입니다.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>이 컴퓨터에는 이름이 너무 김</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>“%1”은(는) 대상 폴더 밖을 가리킵니다.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>대상 폴더 밖을 가리킵니다</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>“%1”은(는) 링크입니다. 링크는 따라가지 않습니다.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>링크임. 링크는 따라가지 않음</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>“%1”의 디스크에 남은 공간이 없습니다.</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>이 컴퓨터의 디스크에 남은 공간이 없습니다</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>그곳에서 일부를 삭제하거나 다른 폴더를 선택하세요.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>adb 도구를 설치하거나 휴대폰을 표준 MTP로 전환하세요.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>USB 디버깅에 쓰는 이 컴퓨터의 키를 사용할 수 없습니다.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>휴대폰을 표준 MTP로 전환하세요.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>adb 서버가 응답하지 않습니다.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb가 설치되어 있지 않습니다.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb가 휴대폰에 연결할 수 없습니다.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>휴대폰에서 USB 디버깅을 켜거나 표준 MTP로 전환하세요.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb가 여러 휴대폰에 연결되어 있어 어느 것인지 알 수 없습니다.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>다른 휴대폰을 뽑거나 표준 MTP로 전환하세요.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>adb에서 휴대폰이 오프라인입니다.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>뽑았다가 다시 연결하거나 USB 디버깅을 껐다가 켜세요.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>휴대폰의 Android가 터보 모드에 너무 오래되었습니다.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>“%1”은(는) 올바른 텍스트가 아닌 이름입니다.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>이름이 올바른 텍스트가 아님</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>“%1”의 경로가 너무 깁니다.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>경로가 너무 깁니다</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>나중에 다시 시도하세요.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>서버가 제시간에 응답하지 않았습니다.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>서버의 응답이 너무 깁니다.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>서버의 주소가 안전하지 않습니다.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>서버가 끝없이 리디렉션합니다.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>서버의 응답이 중간에 끊겼습니다.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>서버에 연결할 수 없습니다: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>서버에 연결할 수 없습니다</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>서버가 오류 %1(으)로 응답했습니다.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>서버가 오류로 응답했습니다</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>서버의 응답이 올바르지 않습니다.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>이 컴퓨터의 adb가 너무 오래되어 페어링할 수 없습니다.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>버전 30 이상이 필요합니다.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb가 휴대폰에 연결하지 못했습니다: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb가 휴대폰에 연결하지 못했습니다</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>잠금을 해제하고 디버깅 질문에서 “허용”을 누르세요.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>터보 모드에 필요한 adb가 설치되어 있지 않습니다. 대신 표준 MTP로 휴대폰을 사용합니다.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>폴더를 동기화하는 동안 “%1”이(가) 변경되어 그대로 두었습니다.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>동기화하는 동안 변경됨</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>“%1”은(는) 한쪽에서는 파일이고 다른 쪽에서는 폴더입니다.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>한쪽에서는 파일이고 다른 쪽에서는 폴더임</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>“%1”과(와) 대소문자나 글자 형태만 다른 이름이 있습니다.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>대소문자나 글자 형태만 다른 이름이 있음</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>한쪽에서 “%1” 폴더의 내용을 읽을 수 없었습니다.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>한쪽에서 폴더를 읽을 수 없음</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>“%1”의 폴더에 읽을 수 없는 항목이 있습니다.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>폴더에 읽을 수 없는 항목이 있음</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>“%1”이(가) 복사만 받는 쪽에서 변경되었습니다.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>복사만 받는 쪽에서 변경됨</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>“%1”을(를) 그대로 두었습니다.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>그대로 두도록 선택됨</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>휴대폰이 “%1”의 크기를 알려 주지 않습니다.</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>휴대폰이 크기를 알려 주지 않음</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>휴대폰에 이름이 “%1”인 항목이 여러 개 있습니다.</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>휴대폰에 이 이름의 항목이 여러 개 있음</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>“%1” 폴더가 너무 깊은 곳에 있습니다.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>폴더가 너무 깊은 곳에 있음</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>아무것도 변경하지 않았습니다.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>이전에 동기화한 “%1” 폴더가 없어졌습니다.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>해당 디스크를 연결하거나 폴더를 다시 만드세요.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>동기화한 내용을 “%1”에 기록할 수 없었습니다.</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>동기화한 내용을 기록할 수 없음</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>다음 동기화에서는 그 뒤에 삭제된 것을 알 수 없어 해당 파일을 다시 복사합니다.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>그 디스크에서 일부를 삭제하세요. 전송 중인 파일이 그곳에 놓입니다.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>다른 사용자가 “%1”의 내용을 바꿀 수 있습니다.</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>다른 사용자가 폴더의 내용을 바꿀 수 있습니다</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>다른 사용자가 그 폴더에 쓸 수 없게 하세요.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>“%1”의 복사본이 원본과 같지 않아 제거되었습니다.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>복사본이 원본과 같지 않습니다</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>“%1”이(가) 복사된 후 변경되었습니다. 그대로 두었습니다.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>복사된 후 변경되었습니다</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>필요하지 않으면 직접 삭제하세요.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>설정</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>무선 기기…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary 종료</translation>
    </message>
    <message>
        <source>File</source>
        <translation>파일</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>편집</translation>
    </message>
    <message>
        <source>View</source>
        <translation>보기</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>이동</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>전체 화면</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>복사 기록…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>새 윈도우</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>도움말</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>새 탭</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>탭 닫기</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>다음 탭</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>이전 탭</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>폴더를 읽지 못했습니다.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>다시 시도하려면 새로 고치세요.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>앱을 읽지 못했습니다.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>다시 시도하려면 목록을 새로 고치세요.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>상위 폴더로 이동하세요.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>철자를 확인하거나 아래에서 폴더를 선택하세요.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>이제 다른 폴더가 표시되고 있습니다. 아무 작업도 하지 않았습니다.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>“%1”을(를) 만들 수 없습니다: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>“%1”의 이름을 바꿀 수 없습니다: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>“%1”을(를) 이동할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>“%1”을(를) 삭제할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>the name of an item, and why it failed</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the items of a list</comment>
        <translation>, </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 외 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%1개 항목 중 %Ln개를 이동할 수 없습니다: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%1개 항목 중 %Ln개를 삭제할 수 없습니다: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>폴더 “%1”이(가) 휴대폰에 더 이상 없습니다.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>휴대폰에 “%1”이(가) 없습니다.</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>“%1”을(를) 가져올 수 없습니다: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>검색을 중지했습니다. 그때까지 찾은 항목을 표시합니다.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>“%1”을(를) 열 수 없습니다: 알맞은 프로그램이 없거나 시작되지 않았습니다.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>여기에서는 폴더를 다른 프로그램으로 끌어 놓을 수 없습니다.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>먼저 이 컴퓨터로 복사하세요.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>“%1”은(는) 끌어 놓는 동안 복사하기에는 시간이 너무 오래 걸립니다.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>예(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>아니요(&amp;N)</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>휴대폰 연결 풀기</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>휴대폰 연결을 풀기 위해 다음 프로그램을 종료합니다: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>이 프로그램들이 하던 복사는 중단되고, 표시하던 휴대폰의 폴더는 닫힙니다. 휴대폰에 있는 파일의 저장하지 않은 변경 내용은 잃을 수 있습니다.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>프로그램 종료</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>앱</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>파일 관리자에서 열기</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>이 컴퓨터의 폴더</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>이름</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>크기</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>휴대폰으로 복사</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>휴대폰에서 대치</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>이 컴퓨터로 복사</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>이 컴퓨터에서 대치</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>휴대폰으로 이동</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>이 컴퓨터로 이동</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>두 버전 모두 유지</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>휴대폰에서 삭제</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>이 컴퓨터에서 삭제</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>휴대폰에서 이름 변경</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>이 컴퓨터에서 이름 변경</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>기기에 연결하는 중…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>다른 동기화를 기다리는 중…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>폴더를 검사하는 중…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>삭제 확인을 기다리는 중…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>파일을 분석하는 중…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>전송을 시작하는 중…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>업로드 중</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>다운로드 중</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>이동 중</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>이동 중(대상에 이미 있음)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>최신 상태</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>새 파일과 변경된 파일이 양방향으로 복사됩니다. 한쪽에서 삭제된 파일은 동의하신 뒤 다른 쪽에서도 삭제됩니다.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>새 파일과 변경된 파일이 양방향으로 복사됩니다. 한쪽에서 삭제된 파일은 다시 복사됩니다.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>파일이 휴대폰으로 이동합니다. 각 파일은 도착하면 여기서 삭제됩니다.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>새 파일과 변경된 파일이 휴대폰으로 복사됩니다. 아무것도 삭제되지 않습니다.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>파일이 여기로 이동합니다. 각 파일은 도착하면 휴대폰에서 삭제됩니다.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>휴대폰의 새 파일과 변경된 파일이 여기로 복사됩니다. 아무것도 삭제되지 않습니다.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>삭제 중</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>마지막 동기화 후 파일 %Ln개가 있었지만 이 컴퓨터의 폴더가 비어 있습니다. 디스크가 빠져 있나요?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>마지막 동기화 후 파일 %Ln개가 있었지만 휴대폰의 폴더가 비어 있습니다. 메모리 카드가 빠져 있나요?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>마지막 동기화의 파일 %Ln개 중 절반 이상이 삭제됩니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>취소됨</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>파일 %Ln개를 그대로 두었습니다</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>%1 동기화를 마치지 못했습니다.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>%1 동기화에서 일부 파일을 그대로 두었습니다.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>휴대폰으로 복사함</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>휴대폰에서 대치함</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>이 컴퓨터로 복사함</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>이 컴퓨터에서 대치함</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>휴대폰으로 이동함</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>이 컴퓨터로 이동함</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>두 버전 모두 유지함</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>휴대폰에서 삭제함</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>이 컴퓨터에서 삭제함</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>휴대폰에서 이름 변경함</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>이 컴퓨터에서 이름 변경함</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>필터…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>앱을 찾는 중…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>파일을 공유하는 앱 없음</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>일치하는 앱 없음</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>필터 지우기</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>연결 실패</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>제작자가 파일 공유를 켠 앱만 컴퓨터에서 열 수 있습니다. 사진과 비디오는 열 수 있습니다.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>사진 및 비디오</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>카메라로 찍은 것과 함께 저장된 것</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>경로</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>중간 폴더</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>보기 방식</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>필터…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>필터 지우기</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>경로</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>휴대폰으로 복사</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>아래에서 검색…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>기타 명령</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln개 선택됨</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>파일</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>즐겨찾기에서 제거</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>항목 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>항목 %Ln개 중 %1개</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%2개 중 %1개 완료(Esc로 중지)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>읽는 중…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>즐겨찾기에 추가</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>“%1”(으)로</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>검색 중…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Esc로 중지)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>복사할 위치</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>휴대폰으로 파일 복사</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>휴대폰으로 폴더 복사</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>이동 위치</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>여기로 이동</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>여기에 복사</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>복사 기록</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>복사 검색</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>제외된 항목</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>이유</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>폴더에서 보기</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>기록 지우기…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>아직 복사한 것이 없습니다.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>검색과 일치하는 복사가 없습니다.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>기록 지우기</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>복사한 기록을 지울까요?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>복사된 파일은 그대로 있습니다. 중단된 복사는 다시 제안하지 않습니다.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>확인이 필요합니다</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>배터리 %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>잠김: 잠금을 해제하세요</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>연결하는 중…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>저장소를 읽는 중…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>파일 관리자에서 열려 있음</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>다른 프로그램으로 열기</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>프로그램을 찾는 중…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>이 항목을 여는 프로그램이 없음</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>실행 취소</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>이름 변경 취소</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>이동 취소</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>새 폴더 취소</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>복사 취소</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>폴더 %1개를 각각 별도의 탭에서 열까요?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>여기로 이동</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>여기에 복사</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>자세히</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>자세한 내용 복사</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>파일을 가져오는 중</translation>
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
            <numerusform>항목 %Ln개</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>폴더 이름</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>이름</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>휴대폰에서 복사할 위치</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>파일을 두 번 클릭하면</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>새 휴대폰의 파일 표시</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>매번 묻는 폴더</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>선택…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>미리보기 표시</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>이 컴퓨터로 복사</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>목록</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>그림</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>항상 같은 폴더</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>터보 모드 사용</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>허용하는 모든 휴대폰에서</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>선택한 휴대폰에서만</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>항목 %Ln개</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>새 폴더…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>저장소</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>상위 폴더</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>폴더</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>읽는 중…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>여기에는 폴더가 없습니다.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>새 폴더</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>새 폴더의 이름:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>휴대폰 연결이 끊어졌습니다</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>휴대폰을 다시 연결하고 잠금을 해제하세요.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>다시 연결하고 잠금을 해제한 뒤 “파일 전송”을 선택하세요.</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>연결 실패</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>폴더를 찾을 수 없음</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>기기에서 이 폴더를 찾을 수 없습니다. 삭제되었거나 이동되었을 수 있습니다. 즐겨찾기에서 제거할까요?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>즐겨찾기에서 제거</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>유지</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>휴대폰에서 삭제되었거나 이동되었을 수 있습니다.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>상위 폴더</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>폴더 내용을 불러오는 중…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>기기 저장소를 불러오는 중…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>일치하는 파일 없음</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>이름에 “%1”이(가) 들어간 항목이 없습니다.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>필터 지우기</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>숨김 파일만 있습니다</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>이름이 점으로 시작하는 파일입니다.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>숨김 파일 표시</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>이 폴더는 비어 있습니다</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>여기에 파일을 놓으면 휴대폰으로 복사됩니다.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>“%1” 검색 중…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>찾을 수 없음</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>이 폴더 아래에 이름에 “%1”이 들어간 항목이 없습니다.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>폴더 표시</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>여기에 파일을 놓으면 이 폴더로 복사됩니다.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln개 항목을 읽지 못했습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>이 폴더로 파일을 복사하는 중…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>복사가 끝나면 표시됩니다.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>설정을 읽지 못했습니다. 기본 설정으로 계속합니다.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>파일이 손상되었습니다: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>손상된 파일은 보관되었습니다: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>설정을 저장하지 못했습니다: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Tessary를 종료할 때까지 유지되며 변경할 때마다 다시 시도합니다.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>이 컴퓨터의 다른 프로그램도 휴대폰을 엽니다.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>휴대폰의 파일이 여기에 표시되지 않으면 그 프로그램이 휴대폰을 놓게 하세요.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>휴대폰 연결 풀기</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>보고서 보기</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>“%1” 복사가 중단되었습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>복사 %Ln개가 중단되었습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>휴대폰이 다시 연결되었습니다. 이미 받은 것은 다시 복사하지 않습니다.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>복사 계속</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>“%1”을(를) 파일 관리자에서 열지 못했습니다.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>이 컴퓨터에서는 사용자가 아무것도 마운트할 수 없습니다. FUSE가 설치되지 않았을 수 있습니다.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>휴대폰을 연결하고 잠금을 해제하세요. Android에서는 USB 알림에서 “파일 전송”을 선택하고, iPhone에서는 “신뢰”를 누르세요.</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>윈도우 밖으로 파일을 끌면 이 컴퓨터로, 안으로 끌면 휴대폰으로 복사됩니다.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 키를 누르면 이 컴퓨터의 폴더가 휴대폰의 폴더 옆에 나타납니다. 끌거나 붙여넣어 복사하세요.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>“사진 가져오기…”는 카메라의 새 사진을 가져오고, “동기화”는 여기의 폴더와 휴대폰의 폴더를 같게 유지합니다.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>끄는 동안 Ctrl은 복사하고, Shift는 이동하고, Alt는 묻습니다.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>단축키</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>도움말</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>첫걸음</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>이미 가져온 항목도 표시</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>날짜별 폴더</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>사진 및 비디오</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>%1에서 가져오기</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>사진과 비디오를 찾는 중…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>파일 %Ln개 찾음</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>휴대폰에서 삭제하는 중…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln개 항목을 읽지 못했습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>이 휴대폰의 모든 항목을 이미 가져왔습니다.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>새로운 사진 없음</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>사진이나 비디오 없음</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln개 선택됨</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>가져오기</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>파일 %2개 중 %1개</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>가져오는 중…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>휴대폰의 항목과 비교했으며 %1에 있습니다.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>모두 도착하지는 않았습니다. 이유는 아래 복사 목록에 있습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>사진과 비디오 %Ln개를 가져왔습니다</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>폴더에서 보기</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>휴대폰에서 삭제…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>더 가져오기</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>파일 %Ln개가 남았습니다. 첫 번째 이유: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>휴대폰에서 사진과 비디오 %Ln개를 삭제했습니다</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>휴대폰에서 사진과 비디오 %Ln개를 삭제하시겠습니까?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>즉시 사라지며 휴대폰의 “최근 삭제된 항목” 앨범으로 가지 않습니다.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>그 전에 이 컴퓨터의 각 복사본을 한 번 더 읽습니다. 이 작업은 취소할 수 없습니다.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
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
        <translation>Tessary: 가상 휴대폰</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary 종료</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>아직 파일을 복사하고 있습니다.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>동기화가 아직 진행 중입니다.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>종료하면 취소됩니다. 온전히 도착한 것은 남습니다.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>사진 가져오기…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>휴대폰의 파일을 아직 변경하고 있습니다.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>종료하면 중지됩니다. 이미 처리된 것은 그대로 남습니다.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>닫으면 중단됩니다. 완료된 것은 그대로 유지됩니다.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>모든 휴대폰에서 설정 없이 작동합니다.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>더 빠르고 더 많이 보여 줍니다. 휴대폰의 USB 디버깅이 필요합니다.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>“%1”을(를) 열기 위해 가져오는 중…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>파일 %Ln개를 열기 위해 가져오는 중…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>이 컴퓨터를 휴대폰 옆에 표시</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>휴대폰</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>사진 가져오기…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>지금 동기화</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>저장소</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>무엇이 차지하는지 확인하는 중…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>동기화되는 폴더</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>무선</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>사진 둘러보기</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>파일 둘러보기</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>휴대폰 연결 풀기</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>이 휴대폰은 잠겨 있습니다</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>잠금을 해제하고 USB 알림에서 “파일 전송”을 선택하면 파일이 표시됩니다. 이 창은 자동으로 바뀝니다.</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>사진 가져오기</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>이 휴대폰은 잠겨 있습니다</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>잠금을 해제하고 USB 알림에서 “파일 전송”을 선택하면 파일이 표시됩니다. 이 창은 자동으로 바뀝니다.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>휴대폰 연결 풀기</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>카메라 및 사진</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>다운로드</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>사진</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>음악</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>영화 및 동영상</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>문서</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>취소됨</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>이전 항목</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>다음 항목</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>이전 페이지</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>다음 페이지</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>“%1”은(는) 너무 커서 미리 볼 수 없습니다. 먼저 이 컴퓨터로 복사하세요.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>표시할 수 없습니다. 손상되었거나 너무 크거나 보호되어 있습니다.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>앞부분만 표시</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>%1/%2페이지</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>미리 보기</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1바이트</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>종류</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>크기</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>포함된 항목</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>수정일</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>경로</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>폴더</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>속성</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>항목 %Ln개</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>여러 종류</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>세기 중단</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>항목을 세는 중</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>파일: %1, 폴더: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>세기를 중단했습니다. 항목이 더 있을 수 있습니다.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>읽을 수 없는 폴더: %1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>설정</translation>
    </message>
    <message>
        <source>General</source>
        <translation>일반</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>동기화</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>업데이트</translation>
    </message>
    <message>
        <source>About</source>
        <translation>정보</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>언어</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>시스템 기본값</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>표시 언어를 선택하세요. 변경 사항은 즉시 적용됩니다.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>마지막 상태로 창 열기</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>자동으로 업데이트 확인</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>업데이트 확인…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>버전</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>휴대폰을 둘러보고 파일을 양방향으로 복사합니다.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>웹사이트</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>각 복사본을 원본과 비교</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>복사본을 다시 읽어 같음을 확인해야 완료로 처리합니다. 시간이 더 걸립니다.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>무선 기기…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>즐겨찾기</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>바로가기</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>저장소</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>연결된 기기</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>기기 없음</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>iOS 또는 Android 기기를 USB로 연결하세요</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>폴더를 여기에 놓으면 바로 열 수 있습니다.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>즐겨찾기에서 제거</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>파일 관리자에서 제거</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>정렬 기준</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>오름차순</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>내림차순</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>이 메시지 닫기</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>%1 동기화</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>한쪽에서 삭제된 파일은 확인 후 다른 쪽에서도 삭제됩니다</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>파일이 도착하면 원래 위치에서 제거</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>이 폴더 동기화</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>방향</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>양방향</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>휴대폰으로만</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>이 컴퓨터로만</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>선택…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>휴대폰의 폴더</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>실행될 내용 보기</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>이 휴대폰이 연결될 때마다 동기화</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>이 짝 편집</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>제외</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>한 줄에 패턴 하나, .gitignore 규칙: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>저장</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>아직 동기화하는 폴더가 없습니다. 휴대폰의 폴더를 열고 “이 폴더 동기화…”를 선택하세요.</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>대기 중</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>지금 동기화</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>이 짝 제거</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>이 폴더들의 동기화를 그만둘까요?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>어느 쪽에서도 파일이 삭제되지 않습니다.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>제거</translation>
    </message>
    <message>
        <source>More</source>
        <translation>더 보기</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>아직 동기화되지 않음</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>실행될 내용 보기</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>보고서…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>편집…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>동기화</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>이 폴더 동기화…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>모두 동기화</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>그대로 두기</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>실행될 내용</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>작업</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>지금 동기화</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>폴더를 비교하는 중…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>폴더를 비교할 수 없습니다</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>이미 같은 파일 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>확인할 파일 %Ln개, 복사할 양 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>이 컴퓨터의 것 유지</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>휴대폰의 것 유지</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>모두 다시 복사</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>이 컴퓨터</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>휴대폰</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>삭제할 파일</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>위치</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>마지막 동기화 이후 편집됨</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>유지</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>삭제</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>다시 만들기</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>파일을 삭제할까요?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>파일 %Ln개가 한쪽에서 삭제되었습니다. 다른 쪽에서도 삭제할까요?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>유지하는 것은 다시 복사됩니다.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>폴더 없음</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>이 컴퓨터의 폴더가 없어졌습니다</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>아무것도 변경하지 않고 중지</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>폴더가 비어 있음</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>모두 그곳에 다시 복사할까요?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>모두 다시 복사</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>보고서</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>실행 기록</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>파일</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>아직 보고서가 없습니다.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>실행한 내용</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>열</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>탭</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>탭 닫기</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>마무리 중: 휴대폰이 파일을 저장하고 있습니다</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 남음</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>복사하는 중에 Tessary가 종료되었습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 외 %Ln개</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>파일 %1/%Ln개</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>“%1”을(를) 복사했습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln개 항목을 복사했습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>“%1”을(를) 복사하지 못했습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%1개 항목 중 %Ln개를 복사하지 못했습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>복사가 끝났습니다</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>복사 중 문제가 발생했습니다</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>모든 전송이 끝났습니다</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 남음</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>전송</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>모두 취소</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>완료된 항목 지우기</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>폴더에서 보기</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>계속</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>일시 정지</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>기록…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>위로 이동</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>아래로 이동</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>이름</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>크기</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>수정일</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>종류</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>폴더</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>업데이트 확인…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>업데이트 확인 실패</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1은(는) 현재 최신 버전입니다.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>새 버전의 Tessary를 사용할 수 있습니다.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1을(를) 사용할 수 있습니다</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>다운로드</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>이 버전 건너뛰기</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>나중에</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>사진</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>동영상</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>음악</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>앱</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>사용 중</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>기타</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>사용 가능</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>휴대폰을 연결하세요</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>가상 휴대폰으로 사용해 보기</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>예제 파일이 든 가상 휴대폰 두 대로 Tessary를 다시 시작합니다</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>연결하기</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>데이터 케이블을 사용하세요. 충전만 되는 케이블도 있습니다.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>잠금 해제하기</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>잠긴 휴대폰은 저장소를 보여 주지 않습니다.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>휴대폰에서 허용하세요</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android: “이 기기를 USB로 충전 중” 알림을 누르고 “파일 전송”을 선택하세요. iPhone: “신뢰”를 누르세요.</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>휴대폰 연결 풀기</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>다시 시도</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>페어링하는 중…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>연결하는 중…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>페어링됨</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>연결됨</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>페어링 대기 중</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>연결할 수 있음</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>무선 기기</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>이 네트워크에서 무선 디버깅이 켜져 있는 휴대폰입니다.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>휴대폰을 찾는 중…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>다시 찾기</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>이 컴퓨터에서는 네트워크의 휴대폰을 찾을 수 없습니다. 필요한 서비스(avahi-daemon)가 실행되고 있지 않습니다.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>휴대폰의 개발자 옵션에서 무선 디버깅을 켜세요. 이 컴퓨터와 같은 네트워크에 있어야 합니다.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>페어링을 기다리는 휴대폰에는 6자리 코드가 표시됩니다.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>페어링…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>연결</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>휴대폰에 표시된 6자리 숫자:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>페어링</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
</TS>
