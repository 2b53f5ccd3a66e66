<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>Aller au dossier…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>Copier des fichiers ici…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>Copier un dossier ici…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>Par liste</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>Par grille</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Dossier parent</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>Déplacer vers…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>Copier vers…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Dupliquer</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Inverser la sélection</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>Icônes plus grandes</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>Icônes plus petites</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>Icônes de taille normale</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>Fichiers cachés</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>Copier sur l’ordinateur</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>Rechercher dans ce dossier</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>Grouper par jour</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>Sélectionner le jour</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>Ouvrir dans un nouvel onglet</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>Nouveau dossier %1</translation>
    </message>
</context>
<context>
    <name>ByteFormat</name>
    <message>
        <source>1 byte</source>
        <translation>1 octet</translation>
    </message>
</context>
<context>
    <name>ClashQuestion</name>
    <message>
        <source>Already There</source>
        <translation>Existe déjà</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«&#xa0;%1&#xa0;» existe déjà.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>Nouveau&#xa0;: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>Existant&#xa0;: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>Le remplacement fusionne les dossiers&#xa0;; les fichiers de même nom y sont remplacés.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Conserver les deux</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Ignorer</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Faire de même pour l’autre</numerusform>
            <numerusform>Faire de même pour les %Ln autres</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>Espace insuffisant</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>Il n’y a pas assez d’espace pour cette copie.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>Elle nécessite au moins %1, et %2 sont libres dans «&#xa0;%3&#xa0;».</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>Elle nécessite %1, et %2 sont libres dans «&#xa0;%3&#xa0;».</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>Copier quand même</translation>
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
            <numerusform>%1 et %Ln autre</numerusform>
            <numerusform>%1 et %Ln autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln élément sur %1 n’a pas été copié&#xa0;: %2</numerusform>
            <numerusform>%Ln éléments sur %1 n’ont pas été copiés&#xa0;: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>Supprimer %Ln élément&#xa0;?</numerusform>
            <numerusform>Supprimer %Ln éléments&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>Supprimer le dossier «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>Supprimer «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>et %Ln autre</numerusform>
            <numerusform>et %Ln autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>L’élément sera mis à la corbeille.</numerusform>
            <numerusform>%Ln éléments seront mis à la corbeille.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Elles disparaissent immédiatement, sans passer par l’album «&#xa0;Supprimés récemment&#xa0;» du téléphone.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Cette action est irréversible.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>Supprimer le dossier «&#xa0;%1&#xa0;» et l’élément qu’il contient&#xa0;?</numerusform>
            <numerusform>Supprimer le dossier «&#xa0;%1&#xa0;» et les %Ln éléments qu’il contient&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>Une copie est encore en cours&#xa0;: ce qu’elle n’a pas encore lu y manquera.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>La copie vers «&#xa0;%1&#xa0;» est annulée.</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Document</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>Paquet APK</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Code source</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>Transfert de fichiers iOS</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>MTP standard</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>Mode turbo (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Envoi</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>Stockage interne</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>Carte SD</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>Clé USB</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 libres sur %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Déplacer vers le téléphone</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Vers le téléphone uniquement</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Déplacer vers cet ordinateur</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Vers cet ordinateur uniquement</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Dans les deux sens</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documents</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Photos et vidéos</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>Stockage %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copie</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Incomplet</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>Sans date</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>Un problème est survenu.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>un problème est survenu</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>Un autre programme utilise le téléphone.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Rebranchez le téléphone et déverrouillez-le.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>Renommez-le d’abord.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>Déverrouillez le téléphone et choisissez-y «&#xa0;Transfert de fichiers&#xa0;».</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>Réessayez. Si cela ne suffit pas, débranchez le téléphone puis rebranchez-le.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>Le téléphone n’est pas connecté.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>Le téléphone a été débranché.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>Le téléphone ne répond pas.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>Déverrouillez-le. Si cela ne suffit pas, débranchez-le puis rebranchez-le.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>La connexion au téléphone a été interrompue.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 utilise le téléphone.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>Fermez-le, ou démontez le téléphone dans le gestionnaire de fichiers du bureau, puis réessayez.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>Cet utilisateur n’a pas le droit d’ouvrir le périphérique USB du téléphone.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Installez la règle udev fournie avec Tessary, puis rebranchez le téléphone.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>Le téléphone n’a pas encore autorisé cet ordinateur.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>Déverrouillez le téléphone et répondez à sa question&#xa0;: touchez «&#xa0;Faire confiance&#xa0;» ou «&#xa0;Autoriser&#xa0;».</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>Le téléphone a oublié cet ordinateur.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>Débranchez le téléphone, rebranchez-le et touchez-y «&#xa0;Faire confiance&#xa0;».</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>Le téléphone est verrouillé.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>Déverrouillez le téléphone et réessayez.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>Le stockage du téléphone n’est pas disponible.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>Le téléphone a mis fin à la connexion.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>Le téléphone est injoignable.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>Vérifiez le câble ou le réseau. Sur un téléphone Android, le mode turbo exige le débogage USB&#xa0;; le MTP standard s’en passe.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>Les réponses du téléphone n’ont pas de sens.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>Débranchez le téléphone puis rebranchez-le.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>Le téléphone est occupé par une autre copie.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>Réessayez lorsqu’elle sera terminée.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Il n’y a pas de «&#xa0;%1&#xa0;» sur le téléphone.</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>il n’est plus sur le téléphone</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>Il a peut-être été supprimé ou renommé&#xa0;: actualisez le dossier.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«&#xa0;%1&#xa0;» existe déjà.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>son nom est déjà pris</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>«&#xa0;%1&#xa0;» est sur le téléphone, qui prend «&#xa0;%2&#xa0;» pour le même nom.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>le téléphone prend son nom pour celui d’un autre élément</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>Renommez d’abord l’un des deux.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un dossier.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>ce n’est pas un dossier</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un fichier.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>ce n’est pas un fichier</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’est pas vide.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>le dossier n’est pas vide</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être un nom sur le téléphone.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>le téléphone n’autorise pas son nom</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>Le téléphone n’autorise pas cela avec «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>le téléphone ne l’autorise pas</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>Déverrouillez-le et essayez un autre dossier.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>«&#xa0;%1&#xa0;» est protégé en écriture sur le téléphone.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>il est protégé en écriture sur le téléphone</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>Choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>«&#xa0;%1&#xa0;» est trop volumineux pour ce stockage du téléphone.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>il est trop volumineux pour ce stockage du téléphone</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>«&#xa0;%1&#xa0;» a changé entre-temps sur le téléphone. Il a été laissé tel quel.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>il a changé entre-temps sur le téléphone</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>Actualisez le dossier et réessayez.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>il est illisible</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne peut pas être lu en entier.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>le dossier ne peut pas être lu en entier</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>Le téléphone a envoyé %2 des %3 octets de «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>sa taille n’est pas celle annoncée</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>Copiez-le à nouveau.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne peut pas se trouver dans lui-même.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>un dossier ne peut pas se trouver dans lui-même</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>Un stockage entier ne peut pas être modifié ni copié comme un seul élément.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>un stockage entier ne peut pas être modifié ni copié comme un seul élément</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>Le téléphone ne peut pas déplacer «&#xa0;%1&#xa0;» vers un autre stockage.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>le téléphone ne peut pas le déplacer vers un autre stockage</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>Copiez-le plutôt.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>Le téléphone ne sait pas faire cela.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>le téléphone ne peut pas le faire</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>Le téléphone l’a refusé pour «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>le téléphone l’a refusé</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>Le téléphone a accepté, mais n’a rien fait de «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>le téléphone a accepté, mais n’a rien fait</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>Le stockage du téléphone est plein.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>le stockage du téléphone est plein</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>Supprimez quelque chose sur le téléphone ou copiez moins.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être écrit&#xa0;: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>il ne peut pas être écrit sur cet ordinateur</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne peut pas être créé&#xa0;: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>le dossier ne peut pas être créé sur cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être supprimé&#xa0;: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>il ne peut pas être supprimé sur cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être renommé&#xa0;: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>il ne peut pas être renommé sur cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>«&#xa0;%1&#xa0;» n’est plus sur cet ordinateur.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>il n’est plus sur cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ce n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>Un dossier se trouve là où le fichier «&#xa0;%1&#xa0;» devrait être.</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>un dossier de ce nom se trouve sur cet ordinateur</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>Un fichier se trouve là où le dossier «&#xa0;%1&#xa0;» devrait être.</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>un fichier de ce nom se trouve sur cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>«&#xa0;%1&#xa0;» a changé pendant la copie.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>il a changé pendant la copie</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>Le nom «&#xa0;%1&#xa0;» ne peut pas être utilisé sur cet ordinateur.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>son nom est inutilisable sur cet ordinateur</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>Le nom «&#xa0;%1&#xa0;» est trop long pour cet ordinateur.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>son nom est trop long pour cet ordinateur</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>«&#xa0;%1&#xa0;» mène hors du dossier de destination.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>il mène hors du dossier de destination</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>«&#xa0;%1&#xa0;» est un lien&#xa0;; les liens ne sont pas suivis.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>c’est un lien&#xa0;; les liens ne sont pas suivis</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>Il n’y a plus d’espace sur le disque de «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>il n’y a plus d’espace sur le disque de cet ordinateur</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>Supprimez-y quelque chose ou choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>Supprimez quelque chose sur ce disque. Les fichiers y restent le temps de leur transfert.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>D’autres peuvent modifier le contenu de «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>d’autres peuvent modifier le contenu du dossier</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>Ne laissez aucun autre utilisateur écrire dans ce dossier.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>Installez l’outil adb ou passez le téléphone à MTP standard.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>La clé de cet ordinateur pour le débogage USB est inutilisable.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>Passez le téléphone en MTP standard.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>Le serveur d’adb ne répond pas.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb n’est pas installé.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb n’atteint pas le téléphone.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>Activez-y le débogage USB ou passez en MTP standard.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb atteint plusieurs téléphones et ne sait pas lequel est visé.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>Débranchez les autres ou passez en MTP standard.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>Le téléphone est hors ligne pour adb.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>Débranchez-le puis rebranchez-le, ou désactivez puis réactivez le débogage USB.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>L’Android du téléphone est trop ancien pour le mode turbo.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>Le nom «&#xa0;%1&#xa0;» n’est pas un texte valide.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>son nom n’est pas un texte valide</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>Le chemin de «&#xa0;%1&#xa0;» est trop long.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>son chemin est trop long</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Le serveur n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>La réponse du serveur est trop longue.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>L’adresse du serveur n’est pas sûre.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>Le serveur redirige sans fin.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>La réponse du serveur a été interrompue.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>Le serveur est injoignable&#xa0;: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>le serveur est injoignable</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>Le serveur a répondu par l’erreur %1.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>le serveur a répondu par une erreur</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>La réponse du serveur n’est pas celle attendue.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>L’adb de cet ordinateur est trop ancien pour l’association.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>La version 30 ou ultérieure est nécessaire.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb n’a pas pu atteindre le téléphone&#xa0;: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb n’a pas pu atteindre le téléphone</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>Déverrouillez-le et touchez «&#xa0;Autoriser&#xa0;» à la question sur le débogage.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>Le mode turbo a besoin d’adb, qui n’est pas installé. Le téléphone est utilisé par MTP standard à la place.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>«&#xa0;%1&#xa0;» a changé pendant la synchronisation des dossiers. Il a été laissé tel quel.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>il a changé pendant la synchronisation</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>«&#xa0;%1&#xa0;» est un fichier d’un côté et un dossier de l’autre.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>c’est un fichier d’un côté et un dossier de l’autre</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>Un autre nom ne diffère de «&#xa0;%1&#xa0;» que par la casse ou la forme des lettres.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>un autre nom n’en diffère que par la casse ou la forme des lettres</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>Le contenu du dossier «&#xa0;%1&#xa0;» n’a pas pu être lu d’un côté.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>son dossier n’a pas pu être lu d’un côté</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>Le dossier de «&#xa0;%1&#xa0;» contient un élément illisible.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>son dossier contient un élément illisible</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>«&#xa0;%1&#xa0;» a été modifié du côté vers lequel les fichiers sont seulement copiés.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>il a été modifié du côté vers lequel les fichiers sont seulement copiés</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>«&#xa0;%1&#xa0;» a été laissé tel quel.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>il devait être laissé tel quel</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>Le téléphone n’indique pas la taille de «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>le téléphone n’indique pas sa taille</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>Le téléphone a plusieurs éléments nommés «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>le téléphone a plusieurs éléments de ce nom</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» est à une trop grande profondeur.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>le dossier est à une trop grande profondeur</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Rien n’a été modifié.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» a déjà été synchronisé et a disparu.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>Branchez son disque, ou recréez le dossier.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>Ce qui a été synchronisé n’a pas pu être noté dans «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>ce qui a été synchronisé n’a pas pu être noté</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>La prochaine synchronisation ne saura pas ce qui a été supprimé depuis&#xa0;: elle recopiera ces fichiers.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>La copie de «&#xa0;%1&#xa0;» n’était pas identique à son original. Elle a été retirée.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>la copie n’était pas identique à son original</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>«&#xa0;%1&#xa0;» a changé depuis la copie. Il a été laissé tel quel.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>il a changé depuis la copie</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>Supprimez-le vous-même si vous n’en avez pas besoin.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>Appareils sans fil…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Quitter Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Aller</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>Historique des copies…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>Nouvelle fenêtre</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Nouvel onglet</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Fermer l’onglet</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Onglet suivant</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Onglet précédent</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>Le dossier n’a pas été lu.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>Actualisez-le pour réessayer.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>Les apps n’ont pas été lues.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>Actualisez la liste pour réessayer.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>Remontez au dossier qui le contenait.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>Vérifiez l’orthographe ou choisissez le dossier ci-dessous.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>Un autre dossier est affiché entre-temps. Rien n’a été fait.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être créé&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être renommé&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être déplacé&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être supprimé&#xa0;: %2</translation>
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
            <numerusform>%1 et %Ln autre</numerusform>
            <numerusform>%1 et %Ln autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>%Ln élément sur %1 n’a pas pu être déplacé&#xa0;: %2</numerusform>
            <numerusform>%Ln éléments sur %1 n’ont pas pu être déplacés&#xa0;: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>%Ln élément sur %1 n’a pas pu être supprimé&#xa0;: %2</numerusform>
            <numerusform>%Ln éléments sur %1 n’ont pas pu être supprimés&#xa0;: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’est plus sur le téléphone.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Il n’y a pas de «&#xa0;%1&#xa0;» sur le téléphone.</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être récupéré&#xa0;: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>La recherche a été arrêtée. Ce qu’elle avait trouvé est affiché.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être ouvert&#xa0;: aucun programme n’a été trouvé pour cela, ou il n’a pas démarré.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>Les dossiers ne peuvent pas être glissés ici vers d’autres programmes.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>Copiez-le d’abord sur cet ordinateur.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>La copie de «&#xa0;%1&#xa0;» est trop longue pour un glisser-déposer.</translation>
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
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Non</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>Libérer le téléphone</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>Pour libérer le téléphone, ces programmes sont arrêtés&#xa0;: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>Ce qu’ils copient s’interrompt et les dossiers de téléphones qu’ils affichent se ferment. Les modifications pas encore enregistrées de fichiers d’un téléphone peuvent être perdues.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>Arrêter les programmes</translation>
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
        <translation>Ouvrir dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>Dossier sur cet ordinateur</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>Copier sur le téléphone</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>Remplacer sur le téléphone</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>Copier sur cet ordinateur</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>Remplacer sur cet ordinateur</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Déplacer vers le téléphone</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Déplacer vers cet ordinateur</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>Garder les deux versions</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>Supprimer sur le téléphone</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>Supprimer sur cet ordinateur</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>Renommer sur le téléphone</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>Renommer sur cet ordinateur</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>Connexion à l’appareil…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>En attente d’une autre synchronisation…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>Analyse des dossiers…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>En attente de confirmation de suppression…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>Analyse des fichiers…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>Démarrage du transfert…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>Envoi en cours</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Téléchargement en cours</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>Déplacement en cours</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>Déplacement (déjà à destination)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>À jour</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>Les fichiers nouveaux et modifiés sont copiés dans les deux sens. Les fichiers supprimés d’un côté sont supprimés de l’autre après votre accord.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>Les fichiers nouveaux et modifiés sont copiés dans les deux sens. Les fichiers supprimés d’un côté y sont recopiés.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>Les fichiers sont déplacés vers le téléphone&#xa0;: chacun est supprimé ici une fois arrivé.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>Les fichiers nouveaux et modifiés sont copiés sur le téléphone. Rien n’est supprimé.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>Les fichiers sont déplacés ici&#xa0;: chacun est supprimé du téléphone une fois arrivé.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>Les fichiers nouveaux et modifiés du téléphone sont copiés ici. Rien n’est supprimé.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Suppression</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>Le dossier de cet ordinateur est vide, alors qu’il contenait %Ln fichier après la dernière synchronisation. Son disque manque-t-il&#xa0;?</numerusform>
            <numerusform>Le dossier de cet ordinateur est vide, alors qu’il contenait %Ln fichiers après la dernière synchronisation. Son disque manque-t-il&#xa0;?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>Le dossier du téléphone est vide, alors qu’il contenait %Ln fichier après la dernière synchronisation. Sa carte mémoire manque-t-elle&#xa0;?</numerusform>
            <numerusform>Le dossier du téléphone est vide, alors qu’il contenait %Ln fichiers après la dernière synchronisation. Sa carte mémoire manque-t-elle&#xa0;?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>Plus de la moitié du %Ln fichier de la dernière synchronisation serait supprimée.</numerusform>
            <numerusform>Plus de la moitié des %Ln fichiers de la dernière synchronisation serait supprimée.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln fichier laissé tel quel</numerusform>
            <numerusform>%Ln fichiers laissés tels quels</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>La synchronisation avec %1 n’a pas été terminée.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>La synchronisation avec %1 a laissé certains fichiers tels quels.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>Copié sur le téléphone</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>Remplacé sur le téléphone</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>Copié sur cet ordinateur</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Remplacé sur cet ordinateur</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>Déplacé vers le téléphone</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>Déplacé vers cet ordinateur</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>Les deux versions ont été gardées</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>Supprimé sur le téléphone</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Supprimé sur cet ordinateur</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>Renommé sur le téléphone</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>Renommé sur cet ordinateur</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>Filtrer…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>Recherche des apps…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>Aucune app ne partage de fichiers</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>Aucune app correspondante</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Effacer le filtre</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Échec de la connexion</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>Depuis un ordinateur, seules les apps dont les éditeurs ont activé le partage de fichiers peuvent être ouvertes. Les photos et vidéos, elles, peuvent être ouvertes.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Photos et vidéos</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>Ce que l’appareil photo a pris et ce qui a été enregistré avec</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>Chemin</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>Dossiers intermédiaires</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>Mode d’affichage</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>Filtrer…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Effacer le filtre</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Chemin</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>Copier sur le téléphone</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>Rechercher ici…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>Autres commandes</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln sélectionné</numerusform>
            <numerusform>%Ln sélectionnés</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 sur %Ln élément</numerusform>
            <numerusform>%1 sur %Ln éléments</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%1 sur %2 effectués (Échap pour arrêter)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lecture…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>Dans «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>recherche…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Échap pour arrêter)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>Copier vers</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>Copier des fichiers sur le téléphone</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>Copier un dossier sur le téléphone</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>Déplacer vers</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>Déplacer ici</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copier ici</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>Historique des copies</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>Rechercher des copies</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>Ce qui a été laissé de côté</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Pourquoi</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>Vider l’historique…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>Rien n’a encore été copié.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>Aucune copie ne correspond à cette recherche.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Vider l’historique</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>Oublier les copies effectuées&#xa0;?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>Les fichiers copiés restent. Les copies interrompues ne sont plus proposées.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>Nécessite votre attention</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>Batterie %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>Verrouillé&#xa0;: déverrouillez-le</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Connexion…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>Lecture du stockage…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>Ouvert dans le gestionnaire de fichiers</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>Ouvrir avec</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>Recherche de programmes…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>Aucun programme connu pour cela</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>Annuler le renommage</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>Annuler le déplacement</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>Annuler le nouveau dossier</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>Annuler la copie</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>Ouvrir %1 dossiers, chacun dans son propre onglet&#xa0;?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>Déplacer ici</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copier ici</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>Copier les détails</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>Récupération du fichier</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>Nom du dossier</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>Les copies d’un téléphone vont dans</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>Un double clic sur un fichier</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>Les fichiers d’un nouveau téléphone s’affichent</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>un dossier demandé à chaque fois</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>l’ouvre</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>affiche un aperçu</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>le copie sur cet ordinateur</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>en liste</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>en images</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>toujours le même dossier</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>Le mode turbo est utilisé</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>avec chaque téléphone qui le permet</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>seulement là où il a été choisi</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>Nouveau dossier…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Stockage</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Dossier parent</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lecture…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>Il n’y a pas de dossier ici.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nom du nouveau dossier&#xa0;:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>Le téléphone n’est plus là</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Rebranchez le téléphone et déverrouillez-le.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>Rebranchez-le, déverrouillez-le et choisissez-y «&#xa0;Transfert de fichiers&#xa0;».</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Échec de la connexion</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>Dossier introuvable</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>Ce dossier est introuvable sur l’appareil. Il a peut-être été supprimé ou déplacé. Voulez-vous le retirer de vos favoris&#xa0;?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conserver</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>Il a peut-être été supprimé ou déplacé sur le téléphone.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Dossier parent</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>Chargement du contenu du dossier…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>Chargement du stockage de l’appareil…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>Aucun fichier correspondant</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>Rien ici ne contient «&#xa0;%1&#xa0;» dans son nom.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Effacer le filtre</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>Il n’y a ici que des fichiers cachés</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>Leurs noms commencent par un point.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>Afficher les fichiers cachés</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Ce dossier est vide</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>Déposez des fichiers ici pour les copier sur le téléphone.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Recherche de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>Rien trouvé</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>Rien dans ce dossier n’a «&#xa0;%1&#xa0;» dans son nom.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>Afficher le dossier</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>Déposez des fichiers ici pour les copier dans ce dossier.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln élément n’a pas pu être lu.</numerusform>
            <numerusform>%Ln éléments n’ont pas pu être lus.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>Des fichiers sont en cours de copie dans ce dossier…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>Ils apparaîtront une fois la copie terminée.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>Vos réglages n’ont pas pu être lus. Tessary continue avec les siens.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>Le fichier est endommagé&#xa0;: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>Le fichier endommagé a été conservé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>Vos réglages n’ont pas pu être enregistrés&#xa0;: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Ils valent jusqu’à la fermeture de Tessary&#x202f;; chaque changement relance l’enregistrement.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>Un autre programme de cet ordinateur ouvre aussi les téléphones.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>Si un téléphone n’affiche pas ses fichiers ici, faites-le libérer par ce programme.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libérer le téléphone</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>Afficher le rapport</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>La copie de «&#xa0;%1&#xa0;» s’est interrompue.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln copie s’est interrompue.</numerusform>
            <numerusform>%Ln copies se sont interrompues.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>Le téléphone est de retour. Ce qui est arrivé n’est pas recopié.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>Continuer la copie</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être ouvert dans le gestionnaire de fichiers.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>Cet ordinateur ne monte rien pour ses utilisateurs. FUSE n’est peut-être pas installé.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>Branchez le téléphone et déverrouillez-le. Sur un téléphone Android, choisissez «&#xa0;Transfert de fichiers&#xa0;» dans sa notification USB&#xa0;; sur un iPhone, touchez «&#xa0;Faire confiance&#xa0;».</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>Faites glisser des fichiers hors de la fenêtre pour les copier ici, et dans la fenêtre pour les copier sur le téléphone.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 affiche un dossier de cet ordinateur à côté de celui du téléphone&#xa0;: faites glisser ou collez de l’un à l’autre.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>«&#xa0;Importer des photos…&#xa0;» récupère les nouveautés de l’appareil photo, et «&#xa0;Synchronisation&#xa0;» garde identiques un dossier d’ici et un du téléphone.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>Pendant le glissement, Ctrl copie, Maj déplace et Alt demande.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Premiers pas</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>Aussi ce qui a déjà été importé</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>Un dossier par jour</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Photos et vidéos</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>Importer de %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>Recherche de photos et de vidéos…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln fichier trouvé</numerusform>
            <numerusform>%Ln fichiers trouvés</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>Suppression du téléphone…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln élément n’a pas pu être lu.</numerusform>
            <numerusform>%Ln éléments n’ont pas pu être lus.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>Tout ce que contient ce téléphone a déjà été importé.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>Aucune nouvelle photo</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>Ni photos ni vidéos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln choisi</numerusform>
            <numerusform>%Ln choisis</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 fichiers sur %2</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Importation…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>Elles ont été comparées à celles du téléphone et se trouvent dans %1.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>Tout n’est pas arrivé&#xa0;: la liste des copies ci-dessous dit pourquoi.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln photo ou vidéo importée</numerusform>
            <numerusform>%Ln photos et vidéos importées</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>Supprimer du téléphone…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>Importer davantage</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln fichier est resté, car&#xa0;: %1</numerusform>
            <numerusform>%Ln fichiers sont restés, le premier car&#xa0;: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln photo ou vidéo supprimée du téléphone</numerusform>
            <numerusform>%Ln photos et vidéos supprimées du téléphone</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>Supprimer %Ln photo ou vidéo du téléphone&#xa0;?</numerusform>
            <numerusform>Supprimer %Ln photos et vidéos du téléphone&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Elles disparaissent immédiatement, sans passer par l’album «&#xa0;Supprimés récemment&#xa0;» du téléphone.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>Chaque copie sur cet ordinateur est d’abord relue une fois. Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary&#xa0;: téléphones virtuels</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Quitter Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>Des fichiers sont encore en cours de copie.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>Une synchronisation est encore en cours.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>Quitter annule cette opération. Ce qui est arrivé en entier reste.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importer des photos…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>Des fichiers du téléphone sont encore en cours de modification.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>Quitter arrête cela. Ce qui est fait reste fait.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>La fermeture arrête cela. Ce qui est fait reste fait.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>Fonctionne avec tous les téléphones, sans configuration.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>Plus rapide et voit davantage. Nécessite le débogage USB sur le téléphone.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>Récupération de «&#xa0;%1&#xa0;» pour l’ouvrir…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>Récupération de %Ln fichier pour l’ouvrir…</numerusform>
            <numerusform>Récupération de %Ln fichiers pour les ouvrir…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>Cet ordinateur à côté du téléphone</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>Téléphone</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importer des photos…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Synchroniser maintenant</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Stockage</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>Analyse de ce qui l’occupe…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>Dossiers synchronisés</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>Sans fil</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>Parcourir les photos</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Parcourir les fichiers</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libérer le téléphone</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Ce téléphone est verrouillé</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Il montrera ses fichiers dès que vous l’aurez déverrouillé et aurez choisi «&#xa0;Transfert de fichiers&#xa0;» dans sa notification USB. Cette fenêtre suit d’elle-même.</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>Importer des photos</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Ce téléphone est verrouillé</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Il montrera ses fichiers dès que vous l’aurez déverrouillé et aurez choisi «&#xa0;Transfert de fichiers&#xa0;» dans sa notification USB. Cette fenêtre suit d’elle-même.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Libérer le téléphone</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>Appareil photo et photos</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Téléchargements</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>Films et vidéos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documents</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>«&#xa0;%1&#xa0;» est trop volumineux pour un aperçu. Copiez-le d’abord sur cet ordinateur.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>Impossible de l’afficher&#xa0;: le fichier est endommagé, trop volumineux ou protégé.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>seul le début est affiché</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
</context>
<context>
    <name>tessary::PropertiesDialog</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <translation>
            <numerusform>%1 octet</numerusform>
            <numerusform>%1 octets</numerusform>
        </translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenu</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Date de modification</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Chemin</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>Types divers</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>Arrêter le comptage</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>Comptage du contenu</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>Fichiers&#xa0;: %1, dossiers&#xa0;: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>Le comptage a été arrêté&#xa0;: il peut y en avoir davantage.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>Dossiers illisibles&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Langue du système</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>Choisissez la langue d’affichage. Les modifications s’appliquent immédiatement.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>Ouvrir la fenêtre telle qu’elle a été laissée</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Rechercher automatiquement les mises à jour</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher les mises à jour…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>Parcourir des téléphones et copier des fichiers dans les deux sens.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Site web</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>Comparer chaque copie à son original</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>Une copie ne compte qu’une fois relue et jugée identique. Cela prend plus de temps.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>Appareils sans fil…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>Volumes de stockage</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>Appareils connectés</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>Aucun appareil</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>Connectez un appareil iOS ou Android en USB</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>Déposez un dossier ici pour le garder à portée de main.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>Retirer du gestionnaire de fichiers</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Croissant</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Décroissant</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>Fermer ce message</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>Synchronisation de %1</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>Un fichier supprimé d’un côté est supprimé de l’autre, après confirmation</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>Retirer les fichiers de leur emplacement d’origine une fois arrivés</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>Synchroniser ce dossier</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Sens</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Dans les deux sens</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Vers le téléphone uniquement</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Vers cet ordinateur uniquement</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>Dossier sur le téléphone</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Montrer ce qui va se passer</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>Synchroniser dès que ce téléphone est branché</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>Modifier cette paire</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Laissé de côté</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>Un motif par ligne, selon les règles de .gitignore&#xa0;: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>Aucun dossier n’est encore synchronisé. Ouvrez un dossier du téléphone, puis choisissez «&#xa0;Synchroniser ce dossier…&#xa0;».</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Synchroniser maintenant</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>Retirer cette paire</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>Ne plus synchroniser ces dossiers&#xa0;?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>Aucun fichier n’est supprimé d’un côté ni de l’autre.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>Pas encore synchronisé</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Montrer ce qui va se passer</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>Rapports…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Modifier…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>Synchroniser ce dossier…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>Tout synchroniser</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>Laisser tel quel</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>Ce qui va se passer</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Opération</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Synchroniser maintenant</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>Comparaison des dossiers…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>Impossible de comparer les dossiers</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln fichier est déjà identique</numerusform>
            <numerusform>%Ln fichiers sont déjà identiques</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln fichier à examiner, %1 à copier</numerusform>
            <numerusform>%Ln fichiers à examiner, %1 à copier</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>Garder celle de cet ordinateur</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>Garder celle du téléphone</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Tout recopier</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>Sur cet ordinateur</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>Sur le téléphone</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>Fichiers à supprimer</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Où</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>modifié depuis la dernière synchronisation</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conserver</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>Recréer</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>Supprimer les fichiers&#xa0;?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln fichier a été supprimé d’un côté. Le supprimer aussi de l’autre&#xa0;?</numerusform>
            <numerusform>%Ln fichiers ont été supprimés d’un côté. Les supprimer aussi de l’autre&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>Ce que vous gardez est recopié.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>Dossier manquant</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>Le dossier sur cet ordinateur n’est plus là</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>Arrêter sans rien modifier</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>Dossier vide</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>Tout doit-il y être recopié&#xa0;?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Tout recopier</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>Rapports</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Exécutions</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>Il n’y a pas encore de rapport.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>Ce qui a été fait</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>Colonnes</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>Onglets</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Fermer l’onglet</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>Finalisation&#xa0;: le téléphone enregistre encore le fichier</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 restantes</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>Tessary s’est arrêté pendant cette copie.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 et %Ln autre</numerusform>
            <numerusform>%1 et %Ln autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln fichier</numerusform>
            <numerusform>%1/%Ln fichiers</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>«&#xa0;%1&#xa0;» est copié.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln élément est copié.</numerusform>
            <numerusform>%Ln éléments sont copiés.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas été copié.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln élément sur %1 n’a pas été copié.</numerusform>
            <numerusform>%Ln éléments sur %1 n’ont pas été copiés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>La copie est terminée</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>La copie a rencontré un problème</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>Tous les transferts sont terminés</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>%1 restantes</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>Transferts</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>Tout annuler</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Effacer les terminés</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Suspendre</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>Historique…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Date de modification</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher les mises à jour…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>Échec de la recherche de mises à jour</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 est actuellement la version la plus récente.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>Une nouvelle version de Tessary est disponible.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 est disponible</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Ignorer cette version</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
</context>
<context>
    <name>tessary::VolumeCard</name>
    <message>
        <source>Photos</source>
        <translation>Photos</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vidéos</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Occupé</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Autre</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libre</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>Connectez un téléphone</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>Essayer avec un téléphone virtuel</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>Relance Tessary avec deux téléphones virtuels contenant des fichiers d’exemple</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>Branchez-le</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>Utilisez un câble de données&#xa0;: certains ne font que charger.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>Déverrouillez-le</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>Un téléphone verrouillé ne montre rien de son stockage.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>Autorisez-le sur le téléphone</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android&#xa0;: touchez la notification «&#xa0;Recharge de cet appareil via USB&#xa0;» et choisissez «&#xa0;Transfert de fichiers&#xa0;». iPhone&#xa0;: touchez «&#xa0;Se fier&#xa0;».</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>Libérer le téléphone</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>Association…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Connexion…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>Associé</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>En attente d’association</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>Prêt à se connecter</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>Appareils sans fil</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>Téléphones de ce réseau sur lesquels le débogage sans fil est activé.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>Recherche de téléphones…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>Rechercher à nouveau</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>Cet ordinateur ne peut pas rechercher de téléphones sur le réseau&#xa0;: le service nécessaire (avahi-daemon) n’est pas lancé.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>Sur le téléphone, activez le débogage sans fil dans les options pour les développeurs. Il doit être sur le même réseau que cet ordinateur.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>Un téléphone en attente d’association affiche un code à six chiffres.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>Associer…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>Les six chiffres affichés par le téléphone&#xa0;:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>Associer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
</TS>
