<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>Gehe zu Ordner …</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>Dateien hierher kopieren …</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>Einen Ordner hierher kopieren …</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>Als Liste</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>Als Raster</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Abgleich</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>Verschieben nach …</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>Kopieren nach …</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Auswahl umkehren</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>Größere Symbole</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>Kleinere Symbole</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>Symbole in normaler Größe</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>Versteckte Dateien</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>Auf Computer kopieren</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>Unterhalb dieses Ordners suchen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>Nach Tagen gruppieren</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>Tag auswählen</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>In neuem Tab öffnen</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>Neuer Ordner %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>Bereits vorhanden</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>„%1“ ist bereits vorhanden.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>Neu: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>Vorhanden: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>Beim Ersetzen werden die Ordner zusammengeführt; gleichnamige Dateien darin werden ersetzt.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Beide behalten</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Für das übrige ebenso verfahren</numerusform>
            <numerusform>Für die übrigen %Ln ebenso verfahren</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>Nicht genug Platz</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>Für diese Kopie ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>Sie braucht mindestens %1, und auf „%3“ sind %2 frei.</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>Sie braucht %1, und auf „%3“ sind %2 frei.</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>Trotzdem kopieren</translation>
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
            <numerusform>%1 und %Ln weiteres</numerusform>
            <numerusform>%1 und %Ln weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln von %1 Objekten wurde nicht kopiert: %2</numerusform>
            <numerusform>%Ln von %1 Objekten wurden nicht kopiert: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>%Ln Objekt löschen?</numerusform>
            <numerusform>%Ln Objekte löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>Den Ordner „%1“ löschen?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>„%1“ löschen?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>und %Ln weiteres</numerusform>
            <numerusform>und %Ln weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>Es wird in den Papierkorb gelegt.</numerusform>
            <numerusform>%Ln Objekte werden in den Papierkorb gelegt.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Sie verschwinden sofort und kommen nicht in das Album „Zuletzt gelöscht“ des Telefons.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>Den Ordner „%1“ und das Objekt darin löschen?</numerusform>
            <numerusform>Den Ordner „%1“ und die %Ln Objekte darin löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>Eine Kopie läuft noch: Was sie noch nicht gelesen hat, wird dort fehlen.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>Das Kopieren nach „%1“ wird rückgängig gemacht.</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archiv</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>APK-Paket</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Quelltext</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>iOS-Dateiübertragung</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>Standard-MTP</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>Turbomodus (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Hochladen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>In der Warteschlange</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>Interner Speicher</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>SD-Karte</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>USB-Laufwerk</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 von %2 frei</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Auf das Telefon verschieben</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Nur auf das Telefon</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Auf diesen Computer verschieben</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Nur auf diesen Computer</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>In beide Richtungen</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos &amp; Videos</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>Speicher %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopie</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Unvollständig</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>Ohne Datum</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>Etwas ist schiefgegangen.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>etwas ist schiefgegangen</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>Ein anderes Programm benutzt das Telefon.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Schließen Sie das Telefon wieder an und entsperren Sie es.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>Benennen Sie es zuerst um.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>Entsperren Sie das Telefon und wählen Sie darauf „Dateiübertragung“.</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>Versuchen Sie es noch einmal. Hilft das nicht, ziehen Sie das Telefon ab und schließen Sie es wieder an.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>Das Telefon ist nicht verbunden.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>Das Telefon wurde abgezogen.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>Das Telefon antwortet nicht.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>Entsperren Sie es. Hilft das nicht, ziehen Sie es ab und schließen Sie es wieder an.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>Die Verbindung zum Telefon ist abgebrochen.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 benutzt das Telefon.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>Beenden Sie es oder hängen Sie das Telefon im Dateimanager des Desktops aus, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>Dieser Benutzer darf das USB-Gerät des Telefons nicht öffnen.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Installieren Sie die mitgelieferte udev-Regel von Tessary und schließen Sie das Telefon wieder an.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>Das Telefon hat diesen Computer noch nicht zugelassen.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>Entsperren Sie das Telefon und beantworten Sie seine Frage: Tippen Sie auf „Vertrauen“ oder „Zulassen“.</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>Das Telefon hat diesen Computer vergessen.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>Ziehen Sie das Telefon ab, schließen Sie es wieder an und tippen Sie darauf auf „Vertrauen“.</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>Das Telefon ist gesperrt.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>Entsperren Sie das Telefon und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>Der Speicher des Telefons ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>Das Telefon hat die Verbindung beendet.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>Das Telefon ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>Prüfen Sie Kabel oder Netzwerk. Auf einem Android-Telefon muss für den Turbomodus das USB-Debugging eingeschaltet sein; Standard-MTP kommt ohne aus.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>Die Antworten des Telefons ergeben keinen Sinn.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>Ziehen Sie das Telefon ab und schließen Sie es wieder an.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>Das Telefon ist mit einem anderen Kopiervorgang beschäftigt.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>Versuchen Sie es noch einmal, wenn dieser fertig ist.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Auf dem Telefon gibt es kein „%1“.</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>es ist nicht mehr auf dem Telefon</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>Vielleicht wurde es gelöscht oder umbenannt: Laden Sie den Ordner neu.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>„%1“ ist schon vorhanden.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>sein Name ist schon vergeben</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>„%1“ ist auf dem Telefon, das „%2“ für denselben Namen hält.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>das Telefon hält seinen Namen für den eines anderen Objekts</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>Benennen Sie zuerst eines der beiden um.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>„%1“ ist kein Ordner.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>es ist kein Ordner</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>„%1“ ist keine Datei.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>Der Ordner „%1“ ist nicht leer.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>der Ordner ist nicht leer</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>„%1“ kann auf dem Telefon kein Name sein.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>das Telefon erlaubt seinen Namen nicht</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>Das Telefon erlaubt das mit „%1“ nicht.</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>das Telefon erlaubt es nicht</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>Entsperren Sie es und versuchen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>„%1“ ist auf dem Telefon schreibgeschützt.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>es ist auf dem Telefon schreibgeschützt</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>„%1“ ist zu groß für diesen Speicher des Telefons.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>es ist zu groß für diesen Speicher des Telefons</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>„%1“ hat sich inzwischen auf dem Telefon geändert. Es wurde so gelassen, wie es ist.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>es hat sich inzwischen auf dem Telefon geändert</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>Laden Sie den Ordner neu und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>„%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>es lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>Der Ordner „%1“ kann nicht vollständig gelesen werden.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>der Ordner kann nicht vollständig gelesen werden</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>Das Telefon hat %2 der %3 Bytes von „%1“ gesendet.</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>seine Größe ist nicht die angekündigte</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>Kopieren Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>Der Ordner „%1“ kann nicht in sich selbst liegen.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>ein Ordner kann nicht in sich selbst liegen</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>Ein ganzer Speicher kann nicht als ein Objekt geändert oder kopiert werden.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>ein ganzer Speicher kann nicht als ein Objekt geändert oder kopiert werden</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>Das Telefon kann „%1“ nicht auf einen anderen Speicher verschieben.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>das Telefon kann es nicht auf einen anderen Speicher verschieben</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>Kopieren Sie es stattdessen.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>Das Telefon kann das nicht.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>das Telefon kann das nicht</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>Das Telefon hat das für „%1“ abgelehnt.</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>das Telefon hat es abgelehnt</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>Das Telefon hat zugestimmt, aber mit „%1“ nichts getan.</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>das Telefon hat zugestimmt, aber nichts getan</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>Der Speicher des Telefons ist voll.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>der Speicher des Telefons ist voll</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>Löschen Sie etwas auf dem Telefon oder kopieren Sie weniger.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>es kann auf diesem Computer nicht geschrieben werden</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>der Ordner lässt sich auf diesem Computer nicht anlegen</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>„%1“ kann nicht gelöscht werden: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>es kann auf diesem Computer nicht gelöscht werden</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>„%1“ kann nicht umbenannt werden: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>es kann auf diesem Computer nicht umbenannt werden</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>„%1“ ist nicht mehr auf diesem Computer.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>es ist nicht mehr auf diesem Computer</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>„%1“ ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>Wo die Datei „%1“ sein sollte, ist ein Ordner.</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>auf diesem Computer liegt ein Ordner dieses Namens</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>Wo der Ordner „%1“ sein sollte, ist eine Datei.</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>eine Datei dieses Namens ist auf diesem Computer</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>„%1“ hat sich während des Kopierens geändert.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>es hat sich während des Kopierens geändert</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>Der Name „%1“ kann auf diesem Computer nicht verwendet werden.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>der Name ist auf diesem Computer nicht möglich</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>Der Name „%1“ ist zu lang für diesen Computer.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>der Name ist zu lang für diesen Computer</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>„%1“ führt aus dem Zielordner hinaus.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>es führt aus dem Zielordner hinaus</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>„%1“ ist eine Verknüpfung; Verknüpfungen wird nicht gefolgt.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>es ist eine Verknüpfung; Verknüpfungen wird nicht gefolgt</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>Auf dem Datenträger von „%1“ ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>auf dem Datenträger dieses Computers ist kein Platz mehr</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>Löschen Sie dort etwas oder wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>Installieren Sie das Werkzeug adb oder schalten Sie das Telefon auf Standard-MTP um.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>Der Schlüssel dieses Computers für das USB-Debugging ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>Stellen Sie das Telefon auf Standard-MTP um.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>Der Server von adb antwortet nicht.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb ist nicht installiert.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb erreicht das Telefon nicht.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>Schalten Sie darauf das USB-Debugging ein oder wechseln Sie zu Standard-MTP.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb erreicht mehrere Telefone und weiß nicht, welches gemeint ist.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>Ziehen Sie die anderen ab oder wechseln Sie zu Standard-MTP.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>Das Telefon ist für adb offline.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>Ziehen Sie es ab und schließen Sie es wieder an, oder schalten Sie das USB-Debugging aus und wieder ein.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>Das Android des Telefons ist zu alt für den Turbomodus.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>Der Name „%1“ ist kein gültiger Text.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>der Name ist kein gültiger Text</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>Der Pfad von „%1“ ist zu lang.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>sein Pfad ist zu lang</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Der Server hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>Die Antwort des Servers ist zu lang.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>Die Adresse des Servers ist nicht sicher.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>Der Server leitet endlos weiter.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>Die Antwort des Servers brach ab.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>Der Server ist nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>der Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>Der Server hat mit dem Fehler %1 geantwortet.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>der Server hat mit einem Fehler geantwortet</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>Die Antwort des Servers ist nicht, was sie sein sollte.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>Das adb dieses Computers ist zu alt zum Koppeln.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>Version 30 oder neuer ist nötig.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb konnte das Telefon nicht erreichen: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb konnte das Telefon nicht erreichen</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>Entsperren Sie es und tippen Sie bei der Frage nach dem Debugging auf „Zulassen“.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>Der Turbomodus braucht adb, das nicht installiert ist. Stattdessen wird das Telefon über Standard-MTP benutzt.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>„%1“ hat sich geändert, während die Ordner abgeglichen wurden, und wurde gelassen, wie es ist.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>es hat sich während des Abgleichs geändert</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>„%1“ ist auf der einen Seite eine Datei und auf der anderen ein Ordner.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>es ist auf einer Seite eine Datei und auf der anderen ein Ordner</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>Ein anderer Name unterscheidet sich von „%1“ nur in Groß- und Kleinschreibung oder der Form der Buchstaben.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>ein anderer Name unterscheidet sich nur in Groß- und Kleinschreibung oder in der Form der Buchstaben</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>Der Inhalt des Ordners „%1“ konnte auf einer Seite nicht gelesen werden.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>sein Ordner konnte auf einer Seite nicht gelesen werden</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>Der Ordner von „%1“ enthält etwas, das nicht gelesen werden konnte.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>sein Ordner enthält etwas, das nicht gelesen werden konnte</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>„%1“ wurde auf der Seite geändert, auf die nur kopiert wird.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>es wurde auf der Seite geändert, auf die nur kopiert wird</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>„%1“ wurde gelassen, wie es ist.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>es sollte bleiben, wie es ist</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>Das Telefon nennt die Größe von „%1“ nicht.</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>das Telefon nennt die Größe nicht</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>Das Telefon hat mehrere Einträge namens „%1“.</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>das Telefon hat mehrere Einträge dieses Namens</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>Der Ordner „%1“ liegt zu tief.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>der Ordner liegt zu tief</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>Der Ordner „%1“ wurde schon abgeglichen und ist verschwunden.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>Schließen Sie seinen Datenträger an, oder legen Sie den Ordner neu an.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>Was abgeglichen wurde, konnte nicht in „%1“ festgehalten werden.</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>was abgeglichen wurde, konnte nicht festgehalten werden</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>Der nächste Abgleich erkennt nicht, was seither gelöscht wurde, und kopiert solche Dateien zurück.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>Löschen Sie etwas auf diesem Datenträger. Dateien liegen dort, solange sie unterwegs sind.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>Andere können den Inhalt von „%1“ ändern.</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>andere können den Inhalt des Ordners ändern</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>Lassen Sie keinen anderen Benutzer in diesen Ordner schreiben.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>Die Kopie von „%1“ glich ihrem Original nicht. Sie wurde wieder entfernt.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>die Kopie glich ihrem Original nicht</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>„%1“ hat sich seit dem Kopieren geändert. Es wurde so gelassen, wie es ist.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>es hat sich seit dem Kopieren geändert</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>Löschen Sie es selbst, wenn Sie es nicht brauchen.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>Drahtlose Geräte …</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary beenden</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>Kopierverlauf …</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>Neues Fenster</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Neuer Tab</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Tab schließen</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Nächster Tab</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Vorheriger Tab</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>Der Ordner wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>Aktualisiere ihn, um es erneut zu versuchen.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>Die Apps wurden nicht gelesen.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>Aktualisiere die Liste, um es erneut zu versuchen.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>Gehen Sie in den Ordner darüber.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>Prüfen Sie die Schreibweise oder wählen Sie den Ordner unten aus.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>Inzwischen wird ein anderer Ordner angezeigt. Es wurde nichts getan.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>„%1“ konnte nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>„%1“ konnte nicht umbenannt werden: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>„%1“ konnte nicht verschoben werden: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>„%1“ konnte nicht gelöscht werden: %2</translation>
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
            <numerusform>%1 und %Ln weiteres</numerusform>
            <numerusform>%1 und %Ln weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%Ln von %1 Objekten konnte nicht verschoben werden: %2</numerusform>
            <numerusform>%Ln von %1 Objekten konnten nicht verschoben werden: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%Ln von %1 Objekten konnte nicht gelöscht werden: %2</numerusform>
            <numerusform>%Ln von %1 Objekten konnten nicht gelöscht werden: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>Der Ordner „%1“ ist nicht mehr auf dem Telefon.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Auf dem Telefon gibt es kein „%1“.</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>„%1“ konnte nicht geholt werden: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>Die Suche wurde angehalten. Gezeigt wird, was sie bis dahin gefunden hatte.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>„%1“ konnte nicht geöffnet werden: Es wurde kein Programm dafür gefunden, oder es ist nicht gestartet.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>Ordner können hier nicht in andere Programme gezogen werden.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>Kopieren Sie es zuerst auf diesen Computer.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>„%1“ zu kopieren dauert für ein Ziehen zu lange.</translation>
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
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>Telefon freigeben</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>Um das Telefon freizugeben, werden diese Programme beendet: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>Was sie gerade kopieren, bricht ab, und die Ordner von Telefonen, die sie zeigen, schließen sich. Noch nicht gesicherte Änderungen an Dateien auf einem Telefon können verloren gehen.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>Programme beenden</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>Im Dateimanager öffnen</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>Ordner auf diesem Computer</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>Auf das Telefon kopieren</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>Auf dem Telefon ersetzen</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>Auf diesen Computer kopieren</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>Auf diesem Computer ersetzen</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Auf das Telefon verschieben</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Auf diesen Computer verschieben</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>Beide Fassungen behalten</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>Auf dem Telefon löschen</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>Auf diesem Computer löschen</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>Auf dem Telefon umbenennen</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>Auf diesem Computer umbenennen</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>Verbindung zum Gerät …</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>Warten auf einen anderen Abgleich …</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>Ordner werden durchsucht …</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>Wartet auf Bestätigung der Löschungen …</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>Dateien werden verglichen …</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>Übertragung beginnt …</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>Wird hochgeladen</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Wird heruntergeladen</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>Wird verschoben</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>Wird verschoben (ist schon am Ziel)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>Neue und geänderte Dateien werden in beide Richtungen kopiert. Auf einer Seite gelöschte Dateien werden auf der anderen gelöscht, nachdem Sie zugestimmt haben.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>Neue und geänderte Dateien werden in beide Richtungen kopiert. Auf einer Seite gelöschte Dateien werden zurückkopiert.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>Dateien werden auf das Telefon verschoben: Jede wird hier gelöscht, sobald sie angekommen ist.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>Neue und geänderte Dateien werden auf das Telefon kopiert. Nichts wird gelöscht.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>Dateien werden hierher verschoben: Jede wird auf dem Telefon gelöscht, sobald sie angekommen ist.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>Neue und geänderte Dateien des Telefons werden hierher kopiert. Nichts wird gelöscht.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Löschen</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>Der Ordner auf diesem Computer ist leer, obwohl nach dem letzten Abgleich %Ln Datei darin war. Fehlt sein Datenträger?</numerusform>
            <numerusform>Der Ordner auf diesem Computer ist leer, obwohl nach dem letzten Abgleich %Ln Dateien darin waren. Fehlt sein Datenträger?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>Der Ordner auf dem Telefon ist leer, obwohl nach dem letzten Abgleich %Ln Datei darin war. Fehlt die Speicherkarte?</numerusform>
            <numerusform>Der Ordner auf dem Telefon ist leer, obwohl nach dem letzten Abgleich %Ln Dateien darin waren. Fehlt die Speicherkarte?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>Mehr als die Hälfte der %Ln Datei des letzten Abgleichs würde gelöscht.</numerusform>
            <numerusform>Mehr als die Hälfte der %Ln Dateien des letzten Abgleichs würde gelöscht.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln Datei wurde gelassen, wie sie ist</numerusform>
            <numerusform>%Ln Dateien wurden gelassen, wie sie sind</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>Der Abgleich mit %1 wurde nicht beendet.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>Der Abgleich mit %1 hat einige Dateien gelassen, wie sie sind.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>Auf das Telefon kopiert</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>Auf dem Telefon ersetzt</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>Auf diesen Computer kopiert</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Auf diesem Computer ersetzt</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>Auf das Telefon verschoben</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>Auf diesen Computer verschoben</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>Beide Fassungen behalten</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>Auf dem Telefon gelöscht</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Auf diesem Computer gelöscht</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>Auf dem Telefon umbenannt</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>Auf diesem Computer umbenannt</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>Filtern …</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>Apps werden gesucht …</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>Keine Apps, die Dateien freigeben</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>Keine passenden Apps</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>Von einem Computer aus lassen sich nur Apps öffnen, deren Hersteller die Dateifreigabe eingeschaltet haben. Die Fotos und Videos lassen sich öffnen.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos &amp; Videos</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>Was die Kamera aufgenommen hat und was dabei gesichert wurde</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>Ordner dazwischen</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>Filtern …</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>Auf Telefon kopieren</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>Unterhalb suchen …</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>Weitere Befehle</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln ausgewählt</numerusform>
            <numerusform>%Ln ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 von %Ln Objekt</numerusform>
            <numerusform>%1 von %Ln Objekten</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%1 von %2 erledigt (Esc hält an)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>wird gelesen …</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>In „%1“</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>wird durchsucht …</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Esc hält an)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>Kopieren nach</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>Dateien auf das Telefon kopieren</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>Einen Ordner auf das Telefon kopieren</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>Verschieben nach</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>Hierher verschieben</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Hierher kopieren</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>Kopierverlauf</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>Kopien durchsuchen</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>Was ausgelassen wurde</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>Verlauf löschen …</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>Es wurde noch nichts kopiert.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>Keine Kopie passt zu dieser Suche.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Verlauf löschen</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>Vergessen, was kopiert wurde?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>Die kopierten Dateien bleiben. Abgebrochene Kopien werden nicht wieder angeboten.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>Braucht Ihre Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>Akku %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>Gesperrt: bitte entsperren</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Wird verbunden …</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>Speicher wird gelesen …</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>Im Dateimanager geöffnet</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>Öffnen mit</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>Programme werden gesucht …</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>Dafür ist kein Programm bekannt</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>Umbenennen rückgängig machen</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>Verschieben rückgängig machen</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>Neuen Ordner rückgängig machen</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>Kopieren rückgängig machen</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>%1 Ordner öffnen, jeden in einem eigenen Tab?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>Hierher verschieben</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Hierher kopieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>Einzelheiten kopieren</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>Die Datei wird geholt</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>Name des Ordners</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>Kopien von einem Telefon kommen in</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>Ein Doppelklick auf eine Datei</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>Dateien eines neuen Telefons erscheinen</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>einen Ordner, nach dem gefragt wird</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>öffnet sie</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>zeigt eine Vorschau</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>kopiert sie auf diesen Computer</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>als Liste</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>als Bilder</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>immer denselben Ordner</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>Der Turbomodus wird benutzt</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>bei jedem Telefon, das ihn zulässt</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>nur, wo er gewählt wurde</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>Neuer Ordner …</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>wird gelesen …</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>Hier sind keine Ordner.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Name des neuen Ordners:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>Das Telefon ist weg</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Schließen Sie das Telefon wieder an und entsperren Sie es.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>Schließen Sie es wieder an, entsperren Sie es und wählen Sie darauf „Dateiübertragung“.</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>Dieser Ordner wurde auf dem Gerät nicht gefunden. Vielleicht wurde er gelöscht oder verschoben. Möchten Sie ihn aus Ihren Favoriten entfernen?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>Vielleicht wurde er auf dem Telefon gelöscht oder verschoben.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>Inhalt des Ordners wird geladen …</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>Gerätespeicher wird geladen …</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>Keine passenden Dateien</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>Nichts hier hat „%1“ im Namen.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Filter löschen</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>Hier sind nur versteckte Dateien</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>Ihre Namen beginnen mit einem Punkt.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>Versteckte Dateien anzeigen</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Dieser Ordner ist leer</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>Ziehen Sie Dateien hierher, um sie auf das Telefon zu kopieren.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Suche nach „%1“ …</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>Unterhalb dieses Ordners hat nichts „%1“ im Namen.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>Ordner anzeigen</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>Ziehen Sie Dateien hierher, um sie in diesen Ordner zu kopieren.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln Eintrag konnte nicht gelesen werden.</numerusform>
            <numerusform>%Ln Einträge konnten nicht gelesen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>Dateien werden in diesen Ordner kopiert …</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>Sie erscheinen, sobald der Kopiervorgang beendet ist.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>Ihre Einstellungen konnten nicht gelesen werden. Tessary verwendet seine eigenen.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>Die Datei ist beschädigt: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>Die beschädigte Datei wurde aufgehoben: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>Ihre Einstellungen konnten nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Sie gelten bis zum Ende von Tessary; bei jeder Änderung wird es erneut versucht.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>Auch ein anderes Programm auf diesem Computer öffnet Telefone.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>Zeigt ein Telefon seine Dateien hier nicht, lassen Sie jenes Programm es freigeben.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Telefon freigeben</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>Bericht zeigen</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>Das Kopieren von „%1“ ist abgebrochen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln Kopie ist abgebrochen.</numerusform>
            <numerusform>%Ln Kopien sind abgebrochen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>Das Telefon ist wieder da. Was angekommen ist, wird nicht noch einmal kopiert.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>Weiter kopieren</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>„%1“ konnte nicht im Dateimanager geöffnet werden.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>Dieser Computer hängt für seine Benutzer nichts ein. Vielleicht ist FUSE nicht installiert.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>Schließen Sie das Telefon an und entsperren Sie es. Wählen Sie auf einem Android-Telefon „Dateiübertragung“ in der USB-Benachrichtigung; tippen Sie auf einem iPhone auf „Vertrauen“.</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>Ziehen Sie Dateien aus dem Fenster, um sie hierher zu kopieren, und hinein, um sie auf das Telefon zu kopieren.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 zeigt neben dem Ordner des Telefons einen dieses Computers: Ziehen oder fügen Sie von einem in den anderen ein.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>„Fotos importieren …“ holt, was auf der Kamera neu ist, und „Abgleich“ hält einen Ordner hier und einen auf dem Telefon gleich.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>Beim Ziehen kopiert Strg, verschiebt Umschalt und fragt Alt.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Erste Schritte</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>Auch schon Importiertes</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>Ein Ordner für jeden Tag</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos &amp; Videos</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>Import von %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>Fotos und Videos werden gesucht …</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln Datei gefunden</numerusform>
            <numerusform>%Ln Dateien gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>Wird vom Telefon gelöscht …</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln Eintrag konnte nicht gelesen werden.</numerusform>
            <numerusform>%Ln Einträge konnten nicht gelesen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>Alles auf diesem Telefon wurde schon importiert.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>Keine neuen Fotos</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>Keine Fotos oder Videos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln ausgewählt</numerusform>
            <numerusform>%Ln ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 von %2 Dateien</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Wird importiert …</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>Sie wurden mit denen auf dem Telefon verglichen und liegen in %1.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>Nicht alles ist angekommen: Die Liste der Kopien unten sagt, warum.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln Foto oder Video importiert</numerusform>
            <numerusform>%Ln Fotos und Videos importiert</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>Vom Telefon löschen …</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>Weiteres importieren</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln Datei blieb, weil: %1</numerusform>
            <numerusform>%Ln Dateien blieben, die erste, weil: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln Foto oder Video vom Telefon gelöscht</numerusform>
            <numerusform>%Ln Fotos und Videos vom Telefon gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>%Ln Foto oder Video vom Telefon löschen?</numerusform>
            <numerusform>%Ln Fotos und Videos vom Telefon löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Sie verschwinden sofort und kommen nicht in das Album „Zuletzt gelöscht“ des Telefons.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>Jede Kopie auf diesem Computer wird vorher noch einmal gelesen. Das kann nicht rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary: virtuelle Telefone</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Tessary beenden</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>Es werden noch Dateien kopiert.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>Ein Abgleich läuft noch.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>Beim Beenden wird das abgebrochen. Was vollständig angekommen ist, bleibt.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Fotos importieren …</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>Auf dem Telefon werden noch Dateien geändert.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>Beim Beenden wird das angehalten. Was getan ist, bleibt getan.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>Beim Schließen wird das angehalten. Was getan ist, bleibt getan.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>Geht mit jedem Telefon, ohne Einrichtung.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>Schneller und sieht mehr. Braucht USB-Debugging auf dem Telefon.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>„%1“ wird zum Öffnen geholt …</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>%Ln Datei wird zum Öffnen geholt …</numerusform>
            <numerusform>%Ln Dateien werden zum Öffnen geholt …</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>Diesen Computer neben dem Telefon</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Fotos importieren …</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Jetzt abgleichen</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>Es wird ermittelt, was ihn füllt …</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>Abgeglichene Ordner</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>Drahtlos</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>Fotos zeigen</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Dateien zeigen</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Telefon freigeben</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Dieses Telefon ist gesperrt</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Es zeigt seine Dateien, sobald Sie es entsperren und in seiner USB-Benachrichtigung „Dateiübertragung“ wählen. Dieses Fenster zieht von selbst nach.</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>Fotos importieren</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Dieses Telefon ist gesperrt</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Es zeigt seine Dateien, sobald Sie es entsperren und in seiner USB-Benachrichtigung „Dateiübertragung“ wählen. Dieses Fenster zieht von selbst nach.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Telefon freigeben</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>Kamera &amp; Fotos</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>Filme &amp; Videos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück zum vorigen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter zum nächsten</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>„%1“ ist zu groß für eine Vorschau. Kopieren Sie es zuerst auf diesen Computer.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>Die Datei kann nicht gezeigt werden: Sie ist beschädigt, zu groß oder geschützt.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>nur der Anfang wird gezeigt</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1 Byte</numerusform>
            <numerusform>%1 Bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Änderungsdatum</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>Verschiedene Arten</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>Zählen anhalten</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>Der Inhalt wird gezählt</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>Dateien: %1, Ordner: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>Die Zählung wurde angehalten: Es kann noch mehr geben.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>Nicht lesbare Ordner: %1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Abgleich</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Systemsprache</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>Wählen Sie die Sprache der Oberfläche. Änderungen gelten sofort.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>Fenster so öffnen, wie es verlassen wurde</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Automatisch nach Updates suchen</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>Telefone durchsehen und Dateien in beide Richtungen kopieren.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>Jede Kopie mit dem Original vergleichen</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>Eine Kopie gilt erst, wenn sie noch einmal gelesen und für gleich befunden wurde. Das dauert länger.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>Drahtlose Geräte …</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>Schnellzugriff</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>Verbundene Geräte</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>Keine Geräte</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>Verbinden Sie ein iOS- oder Android-Gerät per USB</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>Ziehen Sie einen Ordner hierher, um ihn griffbereit zu haben.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>Aus dem Dateimanager entfernen</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Aufsteigend</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Absteigend</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>Abgleich von %1</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>Eine auf einer Seite gelöschte Datei wird nach Rückfrage auch auf der anderen gelöscht</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>Dateien am Ursprungsort entfernen, sobald sie angekommen sind</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>Diesen Ordner abgleichen</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>In beide Richtungen</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Nur auf das Telefon</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Nur auf diesen Computer</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>Ordner auf dem Telefon</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Zeigen, was geschehen wird</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>Abgleichen, sobald dieses Telefon angeschlossen wird</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>Dieses Paar bearbeiten</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>Ein Muster je Zeile, nach den Regeln von .gitignore: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>Noch werden keine Ordner abgeglichen. Öffnen Sie einen Ordner des Telefons und wählen Sie „Diesen Ordner abgleichen …“.</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>In der Warteschlange</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Jetzt abgleichen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>Dieses Paar entfernen</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>Diese Ordner nicht mehr abgleichen?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>Auf keiner Seite wird eine Datei gelöscht.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>Noch nicht abgeglichen</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Zeigen, was geschehen wird</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>Berichte …</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten …</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>Abgleich</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>Diesen Ordner abgleichen …</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>Alle abgleichen</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>Unverändert lassen</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>Was geschehen wird</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Jetzt abgleichen</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>Die Ordner werden verglichen …</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>Die Ordner lassen sich nicht vergleichen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln Datei ist schon gleich</numerusform>
            <numerusform>%Ln Dateien sind schon gleich</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln Datei durchzugehen, %1 zu kopieren</numerusform>
            <numerusform>%Ln Dateien durchzugehen, %1 zu kopieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>Die dieses Computers behalten</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>Die des Telefons behalten</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Alles noch einmal kopieren</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>Auf diesem Computer</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>Auf dem Telefon</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>Zu löschende Dateien</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>seit dem letzten Abgleich bearbeitet</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>Neu anlegen</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>Dateien löschen?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln Datei wurde auf einer Seite gelöscht. Auch auf der anderen löschen?</numerusform>
            <numerusform>%Ln Dateien wurden auf einer Seite gelöscht. Auch auf der anderen löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>Was Sie behalten, wird zurückkopiert.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>Ordner fehlt</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>Der Ordner auf diesem Computer ist weg</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>Anhalten, nichts ändern</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>Ordner leer</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>Soll alles noch einmal dorthin kopiert werden?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Alles noch einmal kopieren</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Durchläufe</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>Es gibt noch keinen Bericht.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>Was getan wurde</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>Tabs</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Tab schließen</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>Wird abgeschlossen: Das Telefon speichert die Datei noch</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>Tessary wurde beendet, während dies kopiert wurde.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 und %Ln weiteres</numerusform>
            <numerusform>%1 und %Ln weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln Datei</numerusform>
            <numerusform>%1/%Ln Dateien</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>„%1“ ist kopiert.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln Objekt ist kopiert.</numerusform>
            <numerusform>%Ln Objekte sind kopiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>„%1“ wurde nicht kopiert.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln von %1 Objekten wurde nicht kopiert.</numerusform>
            <numerusform>%Ln von %1 Objekten wurden nicht kopiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>Das Kopieren ist fertig</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>Beim Kopieren ging etwas schief</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>Alle Übertragungen sind beendet</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>Übertragungen</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>Alle abbrechen</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Erledigte entfernen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>Verlauf …</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Änderungsdatum</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>Update-Suche fehlgeschlagen</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 ist derzeit die neueste Version.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>Eine neue Version von Tessary ist verfügbar.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 ist verfügbar</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Belegt</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>Verbinden Sie ein Telefon</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>Mit einem virtuellen Telefon ausprobieren</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>Startet Tessary noch einmal mit zwei virtuellen Telefonen, auf denen Beispieldateien liegen</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>Schließen Sie es an</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>Nehmen Sie ein Datenkabel: Manche laden nur.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>Entsperren Sie es</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>Ein gesperrtes Telefon zeigt nichts von seinem Speicher.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>Auf dem Telefon erlauben</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android: Tippen Sie auf die Benachrichtigung „Gerät wird über USB aufgeladen“ und wählen Sie „Dateiübertragung“. iPhone: Tippen Sie auf „Vertrauen“.</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>Telefon freigeben</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>Wird gekoppelt …</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Wird verbunden …</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>Gekoppelt</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>Wartet auf die Kopplung</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>Bereit zum Verbinden</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>Drahtlose Geräte</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>Telefone in diesem Netzwerk, auf denen das Debugging über WLAN eingeschaltet ist.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>Telefone werden gesucht …</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>Erneut suchen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>Dieser Computer kann im Netzwerk nicht nach Telefonen suchen: Der Dienst dafür (avahi-daemon) läuft nicht.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>Schalten Sie auf dem Telefon in den Entwickleroptionen das Debugging über WLAN ein. Es muss im selben Netzwerk sein wie dieser Computer.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>Ein Telefon, das auf die Kopplung wartet, zeigt einen Code aus sechs Ziffern.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>Koppeln …</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>Die sechs Ziffern, die das Telefon zeigt:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>Koppeln</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
