<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>Indietro</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avanti</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>Vai alla cartella…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Ricarica</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nuova cartella</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>Copia file qui…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>Copia una cartella qui…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>Come elenco</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>Come griglia</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Aggiungi ai preferiti</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Proprietà</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Cartella superiore</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Incolla</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annulla modifica</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Taglia</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copia il percorso</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>Sposta in…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>Copia in…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplica</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Inverti la selezione</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>Icone più grandi</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>Icone più piccole</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>Icone di dimensione normale</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>File nascosti</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>Copia sul computer</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>Cerca in questa cartella</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>Raggruppa per giorno</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>Seleziona il giorno</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>Apri in una nuova scheda</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>Nuova cartella</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>Nuova cartella %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 byte</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>Esiste già</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«%1» esiste già.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>Nuovo: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>Esistente: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>La sostituzione unisce le cartelle; i file con lo stesso nome vengono sostituiti.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Sostituisci</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Mantieni entrambi</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Salta</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Fai lo stesso per l’altro</numerusform>
            <numerusform>Fai lo stesso per gli altri %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>Spazio insufficiente</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>Non c’è abbastanza spazio per questa copia.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>Servono almeno %1, e in «%3» sono liberi %2.</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>Servono %1, e in «%3» sono liberi %2.</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>Copia comunque</translation>
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
            <numerusform>%1 e un altro</numerusform>
            <numerusform>%1 e altri %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln di %1 elementi non è stato copiato: %2</numerusform>
            <numerusform>%Ln di %1 elementi non sono stati copiati: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>Eliminare %Ln elemento?</numerusform>
            <numerusform>Eliminare %Ln elementi?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>Eliminare la cartella «%1»?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>Eliminare «%1»?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>e un altro</numerusform>
            <numerusform>e altri %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>Verrà spostato nel cestino.</numerusform>
            <numerusform>%Ln elementi verranno spostati nel cestino.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Spariscono subito e non finiscono nell’album «Eliminati di recente» del telefono.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>L’operazione non può essere annullata.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>Eliminare la cartella «%1» e l’elemento che contiene?</numerusform>
            <numerusform>Eliminare la cartella «%1» e i %Ln elementi che contiene?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>Una copia è ancora in corso: ciò che non ha ancora letto vi mancherà.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>La copia in «%1» viene annullata.</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>Cartella</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Immagine</translation>
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
        <translation>Documento</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archivio</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>Pacchetto APK</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Codice sorgente</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>Trasferimento file iOS</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>MTP standard</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>Modalità turbo (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Caricamento</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Scarica</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>In coda</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>In corso</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Completato</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Non riuscito</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annullato</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>Memoria interna</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>Scheda SD</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>Unità USB</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 liberi di %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Sposta sul telefono</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Solo verso il telefono</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Sposta su questo computer</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Solo verso questo computer</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>In entrambe le direzioni</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documenti</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Foto e video</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>Memoria %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>In pausa</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Incompleto</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>Senza data</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Oggi</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ieri</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>Qualcosa è andato storto.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>qualcosa è andato storto</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>Un altro programma sta usando il telefono.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Ricollega il telefono e sbloccalo.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>Prima rinominalo.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>Sblocca il telefono e scegli su di esso «Trasferimento file».</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>Riprova. Se non basta, scollega il telefono e ricollegalo.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>Il telefono non è collegato.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>Il telefono è stato scollegato.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>Il telefono non risponde.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>Sbloccalo. Se non basta, scollegalo e ricollegalo.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>La connessione con il telefono si è interrotta.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 sta usando il telefono.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>Chiudilo o smonta il telefono nel gestore di file del desktop, poi riprova.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>Questo utente non può aprire il dispositivo USB del telefono.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Installa la regola udev fornita con Tessary, poi ricollega il telefono.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>Il telefono non ha ancora autorizzato questo computer.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>Sblocca il telefono e rispondi alla sua domanda: tocca «Autorizza» o «Consenti».</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>Il telefono ha dimenticato questo computer.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>Scollega il telefono, ricollegalo e tocca «Autorizza».</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>Il telefono è bloccato.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>Sblocca il telefono e riprova.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>La memoria del telefono non è disponibile.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>Il telefono ha chiuso la connessione.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>Il telefono non è raggiungibile.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>Controlla il cavo o la rete. Su un telefono Android la modalità turbo richiede il debug USB; MTP standard funziona senza.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>Le risposte del telefono non hanno senso.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>Scollega il telefono e ricollegalo.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>Il telefono è occupato con un’altra copia.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>Riprova quando sarà terminata.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Sul telefono non c’è «%1».</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>non è più sul telefono</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>Forse è stato eliminato o rinominato: aggiorna la cartella.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«%1» esiste già.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>il suo nome è già in uso</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>Sul telefono c’è «%1», e «%2» vale per esso come lo stesso nome.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>per il telefono il suo nome è quello di un altro elemento</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>Prima rinomina uno dei due.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>«%1» non è una cartella.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>non è una cartella</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«%1» non è un file.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>non è un file</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>La cartella «%1» non è vuota.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>la cartella non è vuota</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>«%1» non può essere un nome sul telefono.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>il telefono non consente il suo nome</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>Il telefono non lo consente con «%1».</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>il telefono non lo consente</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>Sbloccalo e prova un’altra cartella.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>«%1» è protetto da scrittura sul telefono.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>è protetto da scrittura sul telefono</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>Scegli un’altra cartella.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>«%1» è troppo grande per questa memoria del telefono.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>è troppo grande per questa memoria del telefono</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>«%1» è cambiato nel frattempo sul telefono. È stato lasciato com’è.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>è cambiato nel frattempo sul telefono</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>Aggiorna la cartella e riprova.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>«%1» non può essere letto.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>non si può leggere</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>La cartella «%1» non può essere letta per intero.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>la cartella non può essere letta per intero</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>Il telefono ha inviato %2 dei %3 byte di «%1».</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>la sua dimensione non è quella annunciata</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>Copialo di nuovo.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>La cartella «%1» non può trovarsi dentro se stessa.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>una cartella non può trovarsi dentro se stessa</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>Un’intera memoria non può essere modificata o copiata come un solo elemento.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>un’intera memoria non può essere modificata o copiata come un solo elemento</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>Il telefono non può spostare «%1» in un’altra memoria.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>il telefono non può spostarlo in un’altra memoria</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>Invece, copialo.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>Il telefono non può farlo.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>il telefono non può farlo</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>Il telefono lo ha rifiutato per «%1».</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>il telefono lo ha rifiutato</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>Il telefono ha accettato, ma non ha fatto nulla con «%1».</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>il telefono ha accettato, ma non ha fatto nulla</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>La memoria del telefono è piena.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>la memoria del telefono è piena</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>Elimina qualcosa sul telefono o copia di meno.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>«%1» non può essere letto: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>«%1» non può essere scritto: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>non può essere scritto su questo computer</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>La cartella «%1» non può essere creata: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>la cartella non si può creare su questo computer</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>«%1» non può essere eliminato: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>non può essere eliminato su questo computer</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>«%1» non può essere rinominato: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>non può essere rinominato su questo computer</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>«%1» non è più su questo computer.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>non è più su questo computer</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>«%1» non è un file normale.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>non è un file normale</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>C’è una cartella dove dovrebbe esserci il file «%1».</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>su questo computer c’è una cartella con questo nome</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>C’è un file dove dovrebbe esserci la cartella «%1».</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>su questo computer c’è un file con questo nome</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>«%1» è cambiato durante la copia.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>è cambiato durante la copia</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>Il nome «%1» non può essere usato su questo computer.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>il nome non si può usare su questo computer</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>Il nome «%1» è troppo lungo per questo computer.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>il nome è troppo lungo per questo computer</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>«%1» porta fuori dalla cartella di destinazione.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>porta fuori dalla cartella di destinazione</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>«%1» è un collegamento; i collegamenti non vengono seguiti.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>è un collegamento; i collegamenti non vengono seguiti</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>Non c’è più spazio sul disco di «%1».</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>non c’è più spazio sul disco di questo computer</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>Elimina qualcosa o scegli un’altra cartella.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>Installa lo strumento adb o passa il telefono a MTP standard.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>La chiave di questo computer per il debug USB non è utilizzabile.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>Passa il telefono a MTP standard.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>Il server di adb non risponde.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb non è installato.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb non raggiunge il telefono.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>Attiva su di esso il debug USB o passa a MTP standard.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb raggiunge più telefoni e non sa quale sia quello giusto.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>Scollega gli altri o passa a MTP standard.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>Il telefono è offline per adb.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>Scollegalo e ricollegalo, oppure disattiva e riattiva il debug USB.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>L’Android del telefono è troppo vecchio per la modalità turbo.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>Il nome «%1» non è un testo valido.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>il nome non è un testo valido</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>Il percorso di «%1» è troppo lungo.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>il suo percorso è troppo lungo</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>Riprova più tardi.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Il server non ha risposto in tempo.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>La risposta del server è troppo lunga.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>L’indirizzo del server non è sicuro.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>Il server reindirizza senza fine.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>La risposta del server si è interrotta.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>Il server non è raggiungibile: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>il server non è raggiungibile</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>Il server ha risposto con l’errore %1.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>il server ha risposto con un errore</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>La risposta del server non è quella prevista.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>L’adb di questo computer è troppo vecchio per l’abbinamento.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>Serve la versione 30 o successiva.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb non ha raggiunto il telefono: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb non ha raggiunto il telefono</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>Sbloccalo e tocca «Consenti» alla domanda sul debug.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>La modalità turbo ha bisogno di adb, che non è installato. Il telefono viene usato tramite MTP standard.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>«%1» è cambiato mentre le cartelle venivano sincronizzate. È stato lasciato com’è.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>è cambiato durante la sincronizzazione</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>«%1» è un file da un lato e una cartella dall’altro.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>è un file da una parte e una cartella dall’altra</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>Un altro nome differisce da «%1» solo per maiuscole o forma delle lettere.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>un altro nome differisce solo per maiuscole o forma delle lettere</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>Il contenuto della cartella «%1» non è leggibile da un lato.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>la sua cartella non è leggibile da un lato</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>La cartella di «%1» contiene qualcosa di illeggibile.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>la sua cartella contiene qualcosa di illeggibile</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>«%1» è stato modificato dal lato su cui i file vengono solo copiati.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>è stato modificato dal lato su cui i file vengono solo copiati</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>«%1» è stato lasciato com’è.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>doveva restare com’è</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>Il telefono non indica la dimensione di «%1».</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>il telefono non ne indica la dimensione</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>Il telefono ha più elementi chiamati «%1».</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>il telefono ha più elementi con questo nome</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>La cartella «%1» è troppo in profondità.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>la cartella è troppo in profondità</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Non è stato modificato nulla.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>La cartella «%1» è già stata sincronizzata ed è sparita.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>Collega il suo disco o ricrea la cartella.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>Non è stato possibile annotare in «%1» ciò che è stato sincronizzato.</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>non è stato possibile annotare ciò che è stato sincronizzato</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>La prossima sincronizzazione non saprà cosa è stato eliminato: ricopierà quei file.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>Elimina qualcosa da quel disco. I file restano lì durante il trasferimento.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>Altri possono modificare il contenuto di «%1».</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>altri possono modificare il contenuto della cartella</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>Non consentire a nessun altro utente di scrivere in quella cartella.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>La copia di «%1» non era uguale all’originale. È stata rimossa.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>la copia non era uguale all’originale</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>«%1» è cambiato dopo la copia. È stato lasciato com’è.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>è cambiato dopo la copia</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>Eliminalo tu se non ti serve.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>Dispositivi wireless…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Esci da Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Vista</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Vai</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Schermo intero</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>Cronologia delle copie…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>Nuova finestra</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aiuto</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Nuova scheda</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Chiudi la scheda</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Scheda successiva</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Scheda precedente</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>La cartella non è stata letta.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>Aggiornala per riprovare.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>Le app non sono state lette.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>Aggiorna l’elenco per riprovare.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>Risali alla cartella che la conteneva.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>Controlla l’ortografia o scegli la cartella qui sotto.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>Nel frattempo viene mostrata un’altra cartella. Non è stato fatto nulla.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>Impossibile creare «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>Impossibile rinominare «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>Impossibile spostare «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>Impossibile eliminare «%1»: %2</translation>
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
            <numerusform>%1 e un altro</numerusform>
            <numerusform>%1 e altri %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>Impossibile spostare %Ln elemento su %1: %2</numerusform>
            <numerusform>Impossibile spostare %Ln elementi su %1: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>Impossibile eliminare %Ln elemento su %1: %2</numerusform>
            <numerusform>Impossibile eliminare %Ln elementi su %1: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>La cartella «%1» non è più sul telefono.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Sul telefono non c’è «%1».</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>Impossibile recuperare «%1»: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>La ricerca è stata interrotta. È mostrato ciò che aveva trovato.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>Impossibile aprire «%1»: non è stato trovato un programma adatto, oppure non si è avviato.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>Qui le cartelle non possono essere trascinate in altri programmi.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>Copialo prima su questo computer.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>La copia di «%1» richiede troppo tempo durante il trascinamento.</translation>
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
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sì</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>Libera il telefono</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>Per liberare il telefono vengono chiusi questi programmi: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>Ciò che stanno copiando si interrompe e le cartelle dei telefoni che mostrano si chiudono. Le modifiche non ancora salvate a file di un telefono possono andare perse.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>Chiudi i programmi</translation>
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
        <translation>Apri nel gestore file</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>Cartella su questo computer</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dimensione</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>Copia sul telefono</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>Sostituisci sul telefono</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>Copia su questo computer</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>Sostituisci su questo computer</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Sposta sul telefono</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Sposta su questo computer</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>Mantieni entrambe le versioni</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>Elimina sul telefono</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>Elimina su questo computer</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>Rinomina sul telefono</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>Rinomina su questo computer</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>Connessione al dispositivo…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>In attesa di un’altra sincronizzazione…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>Scansione delle cartelle…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>In attesa di conferma dell’eliminazione…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>Analisi dei file…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>Avvio del trasferimento…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>Caricamento in corso</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Scaricamento in corso</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>Spostamento in corso</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>Spostamento (già a destinazione)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Aggiornato</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>I file nuovi e modificati vengono copiati in entrambe le direzioni. Quelli eliminati da una parte vengono eliminati dall’altra dopo il tuo consenso.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>I file nuovi e modificati vengono copiati in entrambe le direzioni. Quelli eliminati da una parte vengono ricopiati.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>I file vengono spostati sul telefono: ognuno viene eliminato qui una volta arrivato.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>I file nuovi e modificati vengono copiati sul telefono. Non viene eliminato nulla.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>I file vengono spostati qui: ognuno viene eliminato dal telefono una volta arrivato.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>I file nuovi e modificati del telefono vengono copiati qui. Non viene eliminato nulla.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Eliminazione</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>La cartella su questo computer è vuota, anche se conteneva %Ln file dopo l’ultima sincronizzazione. Manca il suo disco?</numerusform>
            <numerusform>La cartella su questo computer è vuota, anche se conteneva %Ln file dopo l’ultima sincronizzazione. Manca il suo disco?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>La cartella sul telefono è vuota, anche se conteneva %Ln file dopo l’ultima sincronizzazione. Manca la scheda di memoria?</numerusform>
            <numerusform>La cartella sul telefono è vuota, anche se conteneva %Ln file dopo l’ultima sincronizzazione. Manca la scheda di memoria?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>Verrebbe eliminata più di metà dell’unico file (%Ln) dell’ultima sincronizzazione.</numerusform>
            <numerusform>Verrebbe eliminata più di metà dei %Ln file dell’ultima sincronizzazione.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annullato</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln file lasciato com’è</numerusform>
            <numerusform>%Ln file lasciati come sono</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>La sincronizzazione con %1 non è stata completata.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>La sincronizzazione con %1 ha lasciato alcuni file come sono.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>Copiato sul telefono</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>Sostituito sul telefono</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>Copiato su questo computer</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Sostituito su questo computer</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>Spostato sul telefono</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>Spostato su questo computer</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>Mantenute entrambe le versioni</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>Eliminato sul telefono</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Eliminato su questo computer</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>Rinominato sul telefono</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>Rinominato su questo computer</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>Filtra…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>Ricerca delle app…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>Nessuna app condivide file</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>Nessuna app corrispondente</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Cancella il filtro</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Connessione non riuscita</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>Da un computer si possono aprire solo le app i cui produttori hanno attivato la condivisione dei file. Le foto e i video si possono aprire.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Foto e video</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>Ciò che la fotocamera ha ripreso e ciò che è stato salvato insieme</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>Cartelle intermedie</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>Modalità di visualizzazione</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>Filtra…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Cancella il filtro</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>Copia sul telefono</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>Cerca qui…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>Altri comandi</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln selezionato</numerusform>
            <numerusform>%Ln selezionati</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Rimuovi dai preferiti</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 di %Ln elemento</numerusform>
            <numerusform>%1 di %Ln elementi</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%1 di %2 completati (Esc interrompe)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lettura…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Aggiungi ai preferiti</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>In «%1»</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>ricerca in corso…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Esc interrompe)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>Copia in</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>Copia file sul telefono</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>Copia una cartella sul telefono</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>Sposta in</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>Sposta qui</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copia qui</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>Cronologia delle copie</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>Cerca copie</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>Che cosa è stato tralasciato</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Perché</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>Cancella cronologia…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>Non è stato ancora copiato nulla.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>Nessuna copia corrisponde a questa ricerca.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Cancella cronologia</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>Dimenticare quali copie sono state fatte?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>I file copiati restano. Le copie interrotte non vengono più proposte.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>Richiede attenzione</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>Batteria %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>Bloccato: sbloccalo</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Connessione…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>Lettura della memoria…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>Aperto nel gestore file</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>Apri con</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>Ricerca dei programmi…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>Nessun programma noto per questo</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annulla modifica</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>Annulla la ridenominazione</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>Annulla lo spostamento</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>Annulla la nuova cartella</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>Annulla la copia</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>Aprire %1 cartelle, ognuna in una propria scheda?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>Sposta qui</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copia qui</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>Dettagli</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>Copia i dettagli</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>Recupero del file</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementi</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>Nome della cartella</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>Le copie da un telefono vanno in</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>Un doppio clic su un file</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>I file di un nuovo telefono sono mostrati</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>una cartella chiesta ogni volta</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Scegli…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>lo apre</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>mostra un’anteprima</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>lo copia su questo computer</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>in un elenco</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>come immagini</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>sempre la stessa cartella</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>La modalità turbo si usa</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>con ogni telefono che la consente</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>solo dove è stata scelta</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementi</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>Nuova cartella…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Cartella superiore</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Cartelle</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lettura…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>Qui non ci sono cartelle.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nuova cartella</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nome della nuova cartella:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>Il telefono non c’è più</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Ricollega il telefono e sbloccalo.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>Ricollegalo, sbloccalo e scegli «Trasferimento file».</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Connessione non riuscita</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>Cartella non trovata</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>Questa cartella non si trova sul dispositivo. Forse è stata eliminata o spostata. Vuoi rimuoverla dai preferiti?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Rimuovi dai preferiti</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Mantieni</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>Forse è stata eliminata o spostata sul telefono.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Cartella superiore</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>Caricamento del contenuto della cartella…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>Caricamento della memoria del dispositivo…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>Nessun file corrispondente</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>Qui niente contiene «%1» nel nome.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Cancella il filtro</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>Qui ci sono solo file nascosti</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>I loro nomi iniziano con un punto.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>Mostra i file nascosti</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Questa cartella è vuota</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>Trascina qui i file per copiarli sul telefono.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Ricerca di «%1»…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>Nessun risultato</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>Nulla in questa cartella ha «%1» nel nome.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>Mostra la cartella</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>Trascina qui i file per copiarli nella cartella.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln elemento non è leggibile.</numerusform>
            <numerusform>%Ln elementi non sono leggibili.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>È in corso la copia di file in questa cartella…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>Compariranno al termine della copia.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>Non è stato possibile leggere le tue impostazioni. Tessary continua con le proprie.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>Il file è danneggiato: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>Il file danneggiato è stato conservato: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>Non è stato possibile salvare le tue impostazioni: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Valgono fino alla chiusura di Tessary; a ogni modifica si riprova.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>Anche un altro programma su questo computer apre i telefoni.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>Se un telefono non mostra qui i suoi file, fallo rilasciare da quel programma.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libera il telefono</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>Mostra rapporto</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>La copia di «%1» si è interrotta.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln copia si è interrotta.</numerusform>
            <numerusform>%Ln copie si sono interrotte.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>Il telefono è tornato. Ciò che è arrivato non viene copiato di nuovo.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>Continua la copia</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>Impossibile aprire «%1» nel gestore file.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>Questo computer non monta nulla per i suoi utenti. Forse FUSE non è installato.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>Collega il telefono e sbloccalo. Su un telefono Android scegli «Trasferimento file» nella notifica USB; su un iPhone tocca «Autorizza».</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>Trascina i file fuori dalla finestra per copiarli qui, e dentro per copiarli sul telefono.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 mostra una cartella di questo computer accanto a quella del telefono: trascina o incolla dall’una all’altra.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>«Importa foto…» prende ciò che è nuovo sulla fotocamera, e «Sincronizzazione» mantiene uguali una cartella qui e una sul telefono.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>Durante il trascinamento Ctrl copia, Maiusc sposta e Alt chiede.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Scorciatoie</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aiuto</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Primi passi</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>Anche ciò che è già stato importato</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>Una cartella per ogni giorno</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Foto e video</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>Importa da %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>Ricerca di foto e video…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln file trovato</numerusform>
            <numerusform>%Ln file trovati</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>Eliminazione dal telefono…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln elemento non è leggibile.</numerusform>
            <numerusform>%Ln elementi non sono leggibili.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>Tutto ciò che è su questo telefono è già stato importato.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>Nessuna foto nuova</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>Nessuna foto né video</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln scelto</numerusform>
            <numerusform>%Ln scelti</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importa</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 di %2 file</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Importazione…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>Sono state confrontate con quelle sul telefono e si trovano in %1.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>Non è arrivato tutto: l’elenco delle copie qui sotto spiega perché.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln foto o video importato</numerusform>
            <numerusform>%Ln foto e video importati</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>Elimina dal telefono…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>Importa altro</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln file è rimasto, perché: %1</numerusform>
            <numerusform>%Ln file sono rimasti, il primo perché: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln foto o video eliminato dal telefono</numerusform>
            <numerusform>%Ln foto e video eliminati dal telefono</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>Eliminare %Ln foto o video dal telefono?</numerusform>
            <numerusform>Eliminare %Ln foto e video dal telefono?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Spariscono subito e non finiscono nell’album «Eliminati di recente» del telefono.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>Prima ogni copia su questo computer viene riletta. L’operazione non può essere annullata.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary: telefoni virtuali</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Esci da Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>La copia dei file è ancora in corso.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>Una sincronizzazione è ancora in corso.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>Uscendo, l’operazione viene annullata. Ciò che è arrivato per intero resta.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importa foto…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>I file sul telefono sono ancora in corso di modifica.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>Uscendo, questo si interrompe. Ciò che è fatto resta fatto.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>La chiusura interrompe l’operazione. Ciò che è fatto resta fatto.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>Funziona con ogni telefono, senza configurazione.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>Più veloce e vede di più. Richiede il debug USB sul telefono.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>Recupero di «%1» per aprirlo…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>Recupero di %Ln file per aprirlo…</numerusform>
            <numerusform>Recupero di %Ln file per aprirli…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>Questo computer accanto al telefono</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>Telefono</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importa foto…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizza ora</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>Verifica di ciò che la occupa…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>Cartelle sincronizzate</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>Senza fili</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>Sfoglia le foto</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Sfoglia i file</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libera il telefono</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Questo telefono è bloccato</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Mostrerà i suoi file quando lo sbloccherai e sceglierai «Trasferimento file» nella notifica USB. Questa finestra si aggiorna da sola.</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>Importa foto</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Questo telefono è bloccato</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Mostrerà i suoi file quando lo sbloccherai e sceglierai «Trasferimento file» nella notifica USB. Questa finestra si aggiorna da sola.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libera il telefono</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>Fotocamera e foto</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Download</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Immagini</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musica</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>Film e video</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documenti</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>Annullato</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Precedente</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Successivo</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Pagina precedente</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Pagina successiva</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>«%1» è troppo grande per un’anteprima. Copialo prima su questo computer.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>Impossibile mostrarlo: è danneggiato, troppo grande o protetto.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>viene mostrato solo l’inizio</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Pagina %1 di %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1 byte</numerusform>
            <numerusform>%1 byte</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenuto</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Data di modifica</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Cartella</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Proprietà</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementi</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>Tipi diversi</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>Interrompi il conteggio</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>Conteggio del contenuto</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>File: %1, cartelle: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>Il conteggio è stato interrotto: potrebbe esserci altro.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>Cartelle non leggibili: %1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Generali</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aggiornamenti</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Lingua di sistema</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>Scegli la lingua dell’interfaccia. Le modifiche hanno effetto immediato.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>Apri la finestra com’era</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Cerca automaticamente gli aggiornamenti</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Cerca aggiornamenti…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Versione</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>Sfoglia i telefoni e copia file in entrambe le direzioni.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Sito web</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>Confronta ogni copia con l’originale</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>Una copia vale solo dopo essere stata riletta e trovata uguale. Richiede più tempo.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>Dispositivi wireless…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Preferiti</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>Scorciatoie</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>Volumi di archiviazione</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>Dispositivi collegati</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>Nessun dispositivo</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>Collega un dispositivo iOS o Android via USB</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>Trascina qui una cartella per averla a portata di mano.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Rimuovi dai preferiti</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>Rimuovi dal gestore file</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>Ordina per</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Crescente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Decrescente</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>Chiudi questo messaggio</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>Sincronizzazione di %1</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>Un file eliminato da una parte viene eliminato dall’altra, dopo conferma</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>Rimuovi i file dall’origine una volta arrivati</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>Sincronizza questa cartella</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direzione</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>In entrambe le direzioni</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Solo verso il telefono</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Solo verso questo computer</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Scegli…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>Cartella sul telefono</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostra cosa accadrà</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>Sincronizza ogni volta che questo telefono viene collegato</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>Modifica questa coppia</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Tralasciati</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>Un modello per riga, secondo le regole di .gitignore: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>Nessuna cartella è ancora sincronizzata. Apri una cartella del telefono, poi scegli «Sincronizza questa cartella…».</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>In coda</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizza ora</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>Rimuovi questa coppia</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>Non sincronizzare più queste cartelle?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>Nessun file viene eliminato, da nessuna delle due parti.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Altro</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>Non ancora sincronizzato</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostra cosa accadrà</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>Rapporti…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Modifica…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>Sincronizza questa cartella…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>Sincronizza tutto</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>Lascia com’è</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>Cosa accadrà</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Azione</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizza ora</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>Confronto delle cartelle…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>Impossibile confrontare le cartelle</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln file è già uguale</numerusform>
            <numerusform>%Ln file sono già uguali</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln file da esaminare, %1 da copiare</numerusform>
            <numerusform>%Ln file da esaminare, %1 da copiare</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>Mantieni quella di questo computer</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>Mantieni quella del telefono</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copia di nuovo tutto</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>Su questo computer</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>Sul telefono</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>File da eliminare</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Dove</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>modificato dopo l’ultima sincronizzazione</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Mantieni</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>Crea di nuovo</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>Eliminare i file?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln file è stato eliminato da una parte. Eliminarlo anche dall’altra?</numerusform>
            <numerusform>%Ln file sono stati eliminati da una parte. Eliminarli anche dall’altra?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>Ciò che mantieni viene ricopiato.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>Cartella mancante</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>La cartella su questo computer non c’è più</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>Ferma senza modificare nulla</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>Cartella vuota</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>Copiare di nuovo tutto lì?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copia di nuovo tutto</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>Rapporti</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Esecuzioni</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>File</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>Non c’è ancora alcun rapporto.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>Cosa è stato fatto</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>Colonne</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>Schede</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Chiudi la scheda</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>In chiusura: il telefono sta ancora salvando il file</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 rimanenti</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>Tessary è terminato durante questa copia.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 e un altro</numerusform>
            <numerusform>%1 e altri %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln file</numerusform>
            <numerusform>%1/%Ln file</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>«%1» è stato copiato.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>È stato copiato %Ln elemento.</numerusform>
            <numerusform>Sono stati copiati %Ln elementi.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>«%1» non è stato copiato.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln di %1 elementi non è stato copiato.</numerusform>
            <numerusform>%Ln di %1 elementi non sono stati copiati.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>Copia terminata</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>Problemi durante la copia</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>Tutti i trasferimenti sono terminati</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 rimanenti</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>Trasferimenti</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>Annulla tutto</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Rimuovi completati</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Riprendi</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Sospendi</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>Cronologia…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Sposta su</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Sposta giù</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Data di modifica</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Cartella</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Cerca aggiornamenti…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>Ricerca aggiornamenti non riuscita</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 è attualmente la versione più recente.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>È disponibile una nuova versione di Tessary.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 è disponibile</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Scarica</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Salta questa versione</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Più tardi</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musica</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>App</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Occupato</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Altro</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libero</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>Collega un telefono</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>Prova con un telefono virtuale</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>Riavvia Tessary con due telefoni virtuali che contengono file di esempio</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>Collegalo</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>Usa un cavo dati: alcuni servono solo a ricaricare.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>Sbloccalo</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>Un telefono bloccato non mostra nulla della sua memoria.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>Consentilo sul telefono</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android: tocca la notifica «Dispositivo in carica tramite USB» e scegli «Trasferimento file». iPhone: tocca «Autorizza».</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>Libera il telefono</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>Accoppiamento…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Connessione…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>Accoppiato</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connesso</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>In attesa di accoppiamento</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>Pronto per la connessione</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>Dispositivi wireless</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>Telefoni di questa rete con il debug wireless attivato.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>Ricerca di telefoni…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>Cerca di nuovo</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>Questo computer non può cercare telefoni nella rete: il servizio necessario (avahi-daemon) non è in esecuzione.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>Sul telefono, attiva il debug wireless nelle opzioni sviluppatore. Deve trovarsi nella stessa rete di questo computer.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>Un telefono in attesa di accoppiamento mostra un codice di sei cifre.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>Accoppia…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connetti</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>Le sei cifre mostrate dal telefono:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>Accoppia</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
</TS>
