<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avançar</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>Ir para a pasta…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Recarregar</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nova pasta</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renomear</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>Copiar arquivos para cá…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>Copiar uma pasta para cá…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>As List</source>
        <translation>Como lista</translation>
    </message>
    <message>
        <source>As Grid</source>
        <translation>Como grade</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Adicionar aos favoritos</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronização</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriedades</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Pasta superior</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Pré-visualização</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Colar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copiar caminho</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>Mover para…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>Copiar para…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplicar</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Inverter seleção</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>Ícones maiores</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>Ícones menores</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>Ícones de tamanho normal</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>Arquivos ocultos</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>Copiar para o computador</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>Procurar dentro desta pasta</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>Agrupar por dia</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>Selecionar o dia</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>Abrir em nova aba</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>Nova pasta</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>Nova pasta %1</translation>
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
        <translation>Já existe</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1” já existe.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>Novo: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>Existente: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>Ao substituir, as pastas são combinadas; os arquivos de mesmo nome são substituídos.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Substituir</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Manter ambos</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Pular</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Fazer o mesmo com o outro</numerusform>
            <numerusform>Fazer o mesmo com os outros %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>Espaço insuficiente</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>Não há espaço suficiente para esta cópia.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>Ela precisa de pelo menos %1, e em “%3” há %2 livres.</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>Ela precisa de %1, e em “%3” há %2 livres.</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>Copiar mesmo assim</translation>
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
            <numerusform>%1 e mais %Ln</numerusform>
            <numerusform>%1 e mais %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln de %1 itens não foi copiado: %2</numerusform>
            <numerusform>%Ln de %1 itens não foram copiados: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>Apagar %Ln item?</numerusform>
            <numerusform>Apagar %Ln itens?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>Apagar a pasta “%1”?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>Apagar “%1”?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>e mais %Ln</numerusform>
            <numerusform>e mais %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>O item será movido para a lixeira.</numerusform>
            <numerusform>%Ln itens serão movidos para a lixeira.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Eles somem na hora e não vão para o álbum “Apagados” do telefone.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Isso não pode ser desfeito.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>Apagar a pasta “%1” e o item que ela contém?</numerusform>
            <numerusform>Apagar a pasta “%1” e os %Ln itens que ela contém?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>Uma cópia ainda está em andamento: o que ela ainda não leu vai faltar nela.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>A cópia para “%1” é desfeita.</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagem</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Áudio</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Documento</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Arquivo compactado</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>Pacote APK</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Código-fonte</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>Transferência de arquivos iOS</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>MTP padrão</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>Modo turbo (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Envio</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Baixar</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>Na fila</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>Em andamento</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Concluído</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Falhou</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelado</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>Armazenamento interno</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>Cartão SD</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>Unidade USB</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 livres de %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Mover para o telefone</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Só para o telefone</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Mover para este computador</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Só para este computador</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Nos dois sentidos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos e vídeos</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>Armazenamento %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Cópia</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Em pausa</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Incompleto</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>Sem data</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoje</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ontem</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>Algo deu errado.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>algo deu errado</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>Outro programa está usando o telefone.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Conecte o telefone de novo e desbloqueie-o.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>Renomeie-o antes.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>Desbloqueie o telefone e escolha nele “Transferência de arquivos”.</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>Tente de novo. Se não adiantar, desconecte o telefone e conecte-o de novo.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>O telefone não está conectado.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>O telefone foi desconectado.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>O telefone não responde.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>Desbloqueie-o. Se não adiantar, desconecte-o e conecte-o de novo.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>A conexão com o telefone foi interrompida.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 está usando o telefone.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>Feche-o ou desmonte o telefone no gerenciador de arquivos da área de trabalho e tente de novo.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>Este usuário não pode abrir o dispositivo USB do telefone.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Instale a regra udev que vem com o Tessary e conecte o telefone de novo.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>O telefone ainda não permitiu este computador.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>Desbloqueie o telefone e responda à pergunta: toque em “Confiar” ou “Permitir”.</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>O telefone esqueceu este computador.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>Desconecte o telefone, conecte-o de novo e toque em “Confiar”.</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>O telefone está bloqueado.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>Desbloqueie o telefone e tente de novo.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>O armazenamento do telefone não está disponível.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>O telefone encerrou a conexão.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>Não é possível acessar o telefone.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>Verifique o cabo ou a rede. Em um telefone Android, o modo turbo exige a depuração USB; o MTP padrão funciona sem ela.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>As respostas do telefone não fazem sentido.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>Desconecte o telefone e conecte-o de novo.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>O telefone está ocupado com outra cópia.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>Tente de novo quando ela terminar.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Não há “%1” no telefone.</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>já não está no telefone</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>Pode ter sido apagado ou renomeado: atualize a pasta.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>“%1” já existe.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>o nome já está em uso</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>“%1” está no telefone, que considera “%2” o mesmo nome.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>o telefone considera o nome igual ao de outro item</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>Renomeie um dos dois antes.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>“%1” não é uma pasta.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>não é uma pasta</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>“%1” não é um arquivo.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>não é um arquivo</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>A pasta “%1” não está vazia.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>a pasta não está vazia</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>“%1” não pode ser um nome no telefone.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>o telefone não permite o nome</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>O telefone não permite isso com “%1”.</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>o telefone não permite</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>Desbloqueie-o e tente outra pasta.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>“%1” está protegido contra gravação no telefone.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>está protegido contra gravação no telefone</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>Escolha outra pasta.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>“%1” é grande demais para este armazenamento do telefone.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>é grande demais para este armazenamento do telefone</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>“%1” mudou no telefone nesse meio-tempo. Foi deixado como está.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>mudou no telefone nesse meio-tempo</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>Atualize a pasta e tente de novo.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>“%1” não pode ser lido.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>não pode ser lido</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>A pasta “%1” não pode ser lida por inteiro.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>a pasta não pode ser lida por inteiro</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>O telefone enviou %2 dos %3 bytes de “%1”.</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>o tamanho não é o anunciado</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>Copie-o de novo.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>A pasta “%1” não pode ficar dentro de si mesma.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>uma pasta não pode ficar dentro de si mesma</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>Um armazenamento inteiro não pode ser alterado nem copiado como um só item.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>um armazenamento inteiro não pode ser alterado nem copiado como um só item</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>O telefone não pode mover “%1” para outro armazenamento.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>o telefone não pode movê-lo para outro armazenamento</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>Em vez disso, copie-o.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>O telefone não consegue fazer isso.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>o telefone não consegue fazer isso</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>O telefone recusou isso para “%1”.</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>o telefone recusou</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>O telefone aceitou, mas não fez nada com “%1”.</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>o telefone aceitou, mas não fez nada</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>O armazenamento do telefone está cheio.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>o armazenamento do telefone está cheio</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>Apague algo no telefone ou copie menos.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>“%1” não pode ser lido: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>“%1” não pode ser gravado: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>não pode ser gravado neste computador</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>A pasta “%1” não pode ser criada: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>a pasta não pode ser criada neste computador</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>“%1” não pode ser apagado: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>não pode ser apagado neste computador</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>“%1” não pode ser renomeado: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>não pode ser renomeado neste computador</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>“%1” já não está neste computador.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>já não está neste computador</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>“%1” não é um arquivo comum.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>não é um arquivo comum</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>Há uma pasta onde deveria estar o arquivo “%1”.</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>neste computador há uma pasta com este nome</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>Há um arquivo onde deveria estar a pasta “%1”.</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>há um arquivo com esse nome neste computador</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>“%1” mudou enquanto era copiado.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>mudou enquanto era copiado</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>O nome “%1” não pode ser usado neste computador.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>o nome não pode ser usado neste computador</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>O nome “%1” é longo demais para este computador.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>o nome é longo demais para este computador</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>“%1” leva para fora da pasta de destino.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>leva para fora da pasta de destino</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>“%1” é um link; links não são seguidos.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>é um link; links não são seguidos</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>Não há mais espaço no disco de “%1”.</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>não há mais espaço no disco deste computador</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>Apague algo nele ou escolha outra pasta.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>Instale a ferramenta adb ou mude o telefone para MTP padrão.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>A chave deste computador para a depuração USB não pode ser usada.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>Mude o telefone para MTP padrão.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>O servidor do adb não responde.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>O adb não está instalado.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>O adb não alcança o telefone.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>Ative nele a depuração USB ou mude para MTP padrão.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>O adb alcança vários telefones e não sabe qual é o certo.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>Desconecte os outros ou mude para MTP padrão.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>O telefone está offline para o adb.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>Desconecte-o e conecte-o de novo, ou desative e ative a depuração USB.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>O Android do telefone é antigo demais para o modo turbo.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>O nome “%1” não é um texto válido.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>o nome não é um texto válido</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>O caminho de “%1” é longo demais.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>o caminho é longo demais</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>Tente de novo mais tarde.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>O servidor não respondeu a tempo.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>A resposta do servidor é longa demais.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>O endereço do servidor não é seguro.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>O servidor redireciona sem fim.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>A resposta do servidor foi interrompida.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>Não é possível acessar o servidor: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>não é possível acessar o servidor</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>O servidor respondeu com o erro %1.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>o servidor respondeu com um erro</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>A resposta do servidor não é a esperada.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>O adb deste computador é antigo demais para parear.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>É necessária a versão 30 ou mais recente.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>O adb não conseguiu alcançar o telefone: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>o adb não conseguiu alcançar o telefone</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>Desbloqueie-o e toque em “Permitir” na pergunta sobre a depuração.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>O modo turbo precisa do adb, que não está instalado. O telefone é usado por MTP padrão.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>“%1” mudou enquanto as pastas eram sincronizadas. Ficou como está.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>mudou durante a sincronização</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>“%1” é um arquivo de um lado e uma pasta do outro.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>é um arquivo de um lado e uma pasta do outro</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>Outro nome difere de “%1” só em maiúsculas ou na forma das letras.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>outro nome só difere nas maiúsculas ou na forma das letras</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>Não foi possível ler o conteúdo da pasta “%1” de um dos lados.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>não foi possível ler sua pasta de um dos lados</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>A pasta de “%1” contém algo que não pôde ser lido.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>sua pasta contém algo que não pôde ser lido</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>“%1” foi alterado do lado para o qual os arquivos só são copiados.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>foi alterado do lado para o qual os arquivos só são copiados</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>“%1” ficou como está.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>devia ficar como está</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>O telefone não informa o tamanho de “%1”.</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>o telefone não informa o tamanho</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>O telefone tem vários itens chamados “%1”.</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>o telefone tem vários itens com este nome</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>A pasta “%1” está em um nível profundo demais.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>a pasta está em um nível profundo demais</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Nada foi alterado.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>A pasta “%1” já foi sincronizada e sumiu.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>Conecte o disco dela ou crie a pasta de novo.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>Não foi possível anotar em “%1” o que foi sincronizado.</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>não foi possível anotar o que foi sincronizado</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>A próxima sincronização não saberá o que foi apagado desde então: copiará esses arquivos de volta.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>Apague algo nesse disco. Os arquivos ficam nele enquanto são transferidos.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>Outras pessoas podem alterar o conteúdo de “%1”.</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>outras pessoas podem alterar o conteúdo da pasta</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>Não deixe nenhum outro usuário gravar nessa pasta.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>A cópia de “%1” não era igual ao original. Ela foi removida.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>a cópia não era igual ao original</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>“%1” mudou desde que foi copiado. Foi deixado como está.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>mudou desde que foi copiado</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>Apague-o você mesmo se não precisar dele.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Wireless Devices…</source>
        <translation>Dispositivos sem fio…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Sair do Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Exibir</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Ir</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Tela cheia</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>Histórico de cópias…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>Nova janela</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Nova aba</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Fechar aba</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Próxima aba</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Aba anterior</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>A pasta não foi lida.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>Atualize-a para tentar de novo.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>Os apps não foram lidos.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>Atualize a lista para tentar de novo.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>Suba para a pasta que a continha.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>Confira a grafia ou escolha a pasta abaixo.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>Outra pasta está sendo mostrada agora. Nada foi feito.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>Não foi possível criar “%1”: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>Não foi possível renomear “%1”: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>Não foi possível mover “%1”: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>Não foi possível apagar “%1”: %2</translation>
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
            <numerusform>%1 e mais %Ln</numerusform>
            <numerusform>%1 e mais %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>Não foi possível mover %Ln de %1 itens: %2</numerusform>
            <numerusform>Não foi possível mover %Ln de %1 itens: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>Não foi possível apagar %Ln de %1 itens: %2</numerusform>
            <numerusform>Não foi possível apagar %Ln de %1 itens: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>A pasta “%1” já não está no telefone.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>Não há “%1” no telefone.</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>Não foi possível obter “%1”: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>A busca foi interrompida. É mostrado o que ela havia encontrado.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>Não foi possível abrir “%1”: nenhum programa para isso foi encontrado, ou ele não iniciou.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>Aqui não é possível arrastar pastas para outros programas.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>Copie-o primeiro para este computador.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>A cópia de “%1” demora demais para ser feita enquanto se arrasta.</translation>
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
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sim</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Não</translation>
    </message>
</context>
<context>
    <name>ReleaseQuestion</name>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar o telefone</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>Para liberar o telefone, estes programas são encerrados: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>O que eles estão copiando é interrompido e as pastas de telefones que eles mostram se fecham. Alterações ainda não salvas em arquivos de um telefone podem se perder.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>Encerrar os programas</translation>
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
        <translation>Abrir no gerenciador de arquivos</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>Pasta neste computador</translation>
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
        <translation>Tamanho</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>Copiar para o telefone</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>Substituir no telefone</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>Copiar para este computador</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>Substituir neste computador</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Mover para o telefone</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Mover para este computador</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>Manter as duas versões</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>Apagar no telefone</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>Apagar neste computador</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>Renomear no telefone</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>Renomear neste computador</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>Conectando ao dispositivo…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>Aguardando outra sincronização…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>Examinando pastas…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>Aguardando confirmação para apagar…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>Analisando arquivos…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>Iniciando a transferência…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>Enviando</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Baixando</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>Movendo</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>Movendo (já está no destino)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Atualizado</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>Arquivos novos e alterados são copiados nos dois sentidos. Os apagados de um lado são apagados do outro depois que você concordar.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>Arquivos novos e alterados são copiados nos dois sentidos. Os apagados de um lado são copiados de volta.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>Os arquivos são movidos para o telefone: cada um é apagado aqui depois de chegar.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>Arquivos novos e alterados são copiados para o telefone. Nada é apagado.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>Os arquivos são movidos para cá: cada um é apagado do telefone depois de chegar.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>Arquivos novos e alterados do telefone são copiados para cá. Nada é apagado.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Apagando</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>A pasta neste computador está vazia, embora tivesse %Ln arquivo após a última sincronização. O disco dela está faltando?</numerusform>
            <numerusform>A pasta neste computador está vazia, embora tivesse %Ln arquivos após a última sincronização. O disco dela está faltando?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>A pasta no telefone está vazia, embora tivesse %Ln arquivo após a última sincronização. O cartão de memória está faltando?</numerusform>
            <numerusform>A pasta no telefone está vazia, embora tivesse %Ln arquivos após a última sincronização. O cartão de memória está faltando?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>Mais da metade do %Ln arquivo da última sincronização seria apagada.</numerusform>
            <numerusform>Mais da metade dos %Ln arquivos da última sincronização seria apagada.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelado</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln arquivo ficou como está</numerusform>
            <numerusform>%Ln arquivos ficaram como estão</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>A sincronização com %1 não foi concluída.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>A sincronização com %1 deixou alguns arquivos como estão.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>Copiado para o telefone</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>Substituído no telefone</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>Copiado para este computador</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Substituído neste computador</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>Movido para o telefone</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>Movido para este computador</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>As duas versões foram mantidas</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>Apagado no telefone</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Apagado neste computador</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>Renomeado no telefone</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>Renomeado neste computador</translation>
    </message>
</context>
<context>
    <name>tessary::AppListView</name>
    <message>
        <source>Filter…</source>
        <translation>Filtrar…</translation>
    </message>
    <message>
        <source>Looking for apps…</source>
        <translation>Procurando apps…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>Nenhum app compartilha arquivos</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>Nenhum app correspondente</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Limpar o filtro</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Falha na conexão</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>Em um computador, só é possível abrir apps cujos criadores ativaram o compartilhamento de arquivos. As fotos e os vídeos podem ser abertos.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos e vídeos</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>O que a câmera captou e o que foi salvo com isso</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>tessary::BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>Caminho</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>Pastas intermediárias</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>Modo de exibição</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>Filtrar…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Limpar o filtro</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Caminho</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>Copiar para o telefone</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>Procurar dentro…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>Mais comandos</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln selecionado</numerusform>
            <numerusform>%Ln selecionados</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Arquivos</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Remover dos favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 de %Ln item</numerusform>
            <numerusform>%1 de %Ln itens</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%1 de %2 concluídos (Esc interrompe)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lendo…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Adicionar aos favoritos</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>Para “%1”</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>procurando…</translation>
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
        <translation>Copiar para</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>Copiar arquivos para o telefone</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>Copiar uma pasta para o telefone</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>Mover para</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>Mover para cá</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copiar para cá</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>Histórico de cópias</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>Buscar cópias</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>O que ficou de fora</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Por quê</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>Limpar histórico…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>Nada foi copiado ainda.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>Nenhuma cópia corresponde a esta busca.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Limpar histórico</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>Esquecer quais cópias foram feitas?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>Os arquivos copiados permanecem. As cópias interrompidas não são oferecidas de novo.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>Requer sua atenção</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>Bateria %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>Bloqueado: desbloqueie-o</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>Lendo o armazenamento…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>Aberto no gerenciador de arquivos</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>Abrir com</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>Procurando programas…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>Nenhum programa conhecido para isto</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>Desfazer renomear</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>Desfazer mover</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>Desfazer nova pasta</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>Desfazer copiar</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>Abrir %1 pastas, cada uma em sua própria aba?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>Mover para cá</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copiar para cá</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>tessary::ErrorDetails</name>
    <message>
        <source>Details</source>
        <translation>Detalhes</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>Copiar detalhes</translation>
    </message>
</context>
<context>
    <name>tessary::FactsView</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Fetching the file</source>
        <translation>Obtendo o arquivo</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
</context>
<context>
    <name>tessary::FileGridView</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>Nome da pasta</translation>
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
        <translation>As cópias de um telefone vão para</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>Um clique duplo em um arquivo</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>Os arquivos de um telefone novo aparecem</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>uma pasta perguntada a cada vez</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Escolher…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>o abre</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>mostra uma prévia</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>o copia para este computador</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>em uma lista</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>como imagens</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>sempre a mesma pasta</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>O modo turbo é usado</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>com todo telefone que o permite</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>só onde foi escolhido</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>Nova pasta…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Armazenamento</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Pasta superior</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Pastas</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>lendo…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>Não há pastas aqui.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nova pasta</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nome da nova pasta:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>O telefone sumiu</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Conecte o telefone de novo e desbloqueie-o.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>Conecte-o de novo, desbloqueie-o e escolha nele “Transferência de arquivos”.</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Falha na conexão</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>Pasta não encontrada</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>Esta pasta não foi encontrada no dispositivo. Talvez tenha sido apagada ou movida. Deseja removê-la dos favoritos?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Remover dos favoritos</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Manter</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>Talvez tenha sido apagada ou movida no telefone.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Pasta superior</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>Carregando o conteúdo da pasta…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>Carregando o armazenamento do dispositivo…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>Nenhum arquivo correspondente</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>Nada aqui tem “%1” no nome.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Limpar o filtro</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>Aqui só há arquivos ocultos</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>Seus nomes começam com um ponto.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>Mostrar arquivos ocultos</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Esta pasta está vazia</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>Solte arquivos aqui para copiá-los para o telefone.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Procurando “%1”…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>Nada encontrado</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>Nada dentro desta pasta tem “%1” no nome.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>Mostrar a pasta</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>Solte arquivos aqui para copiá-los para a pasta.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln item não pôde ser lido.</numerusform>
            <numerusform>%Ln itens não puderam ser lidos.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>Arquivos estão sendo copiados para esta pasta…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>Eles aparecem assim que a cópia terminar.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>Não foi possível ler suas configurações. O Tessary continua com as próprias.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>O arquivo está danificado: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>O arquivo danificado foi guardado: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>Não foi possível guardar suas configurações: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Elas valem até o Tessary ser fechado; a cada mudança tenta-se de novo.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>Outro programa neste computador também abre telefones.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>Se um telefone não mostrar seus arquivos aqui, faça esse programa liberá-lo.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar o telefone</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>Mostrar relatório</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>A cópia de “%1” foi interrompida.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>%Ln cópia foi interrompida.</numerusform>
            <numerusform>%Ln cópias foram interrompidas.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>O telefone voltou. O que já chegou não é copiado de novo.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>Continuar a cópia</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>Não foi possível abrir “%1” no gerenciador de arquivos.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>Este computador não monta nada para seus usuários. Talvez o FUSE não esteja instalado.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>Conecte o telefone e desbloqueie-o. Em um telefone Android, escolha “Transferência de arquivos” na notificação de USB; em um iPhone, toque em “Confiar”.</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>Arraste arquivos para fora da janela para copiá-los para cá, e para dentro dela para copiá-los para o telefone.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 mostra uma pasta deste computador ao lado da do telefone: arraste ou cole de uma para a outra.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>“Importar fotos…” busca o que há de novo na câmera, e “Sincronização” mantém iguais uma pasta daqui e uma do telefone.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>Ao arrastar, Ctrl copia, Shift move e Alt pergunta.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Atalhos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Primeiros passos</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>Também o que já foi importado</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>Uma pasta por dia</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos e vídeos</translation>
    </message>
    <message>
        <source>Import from %1</source>
        <translation>Importar de %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>Procurando fotos e vídeos…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln arquivo encontrado</numerusform>
            <numerusform>%Ln arquivos encontrados</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>Apagando do telefone…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>%Ln item não pôde ser lido.</numerusform>
            <numerusform>%Ln itens não puderam ser lidos.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>Tudo deste telefone já foi importado.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>Nenhuma foto nova</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>Nenhuma foto ou vídeo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln escolhido</numerusform>
            <numerusform>%Ln escolhidos</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 de %2 arquivos</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Importando…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>Foram comparados com os do telefone e estão em %1.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>Nem tudo chegou: a lista de cópias abaixo diz por quê.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln foto ou vídeo importado</numerusform>
            <numerusform>%Ln fotos e vídeos importados</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>Apagar do telefone…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>Importar mais</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>%Ln arquivo ficou, porque: %1</numerusform>
            <numerusform>%Ln arquivos ficaram; o primeiro, porque: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln foto ou vídeo apagado do telefone</numerusform>
            <numerusform>%Ln fotos e vídeos apagados do telefone</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>Apagar %Ln foto ou vídeo do telefone?</numerusform>
            <numerusform>Apagar %Ln fotos e vídeos do telefone?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Eles somem na hora e não vão para o álbum “Apagados” do telefone.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>Antes, cada cópia neste computador é lida mais uma vez. Isso não pode ser desfeito.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
</context>
<context>
    <name>tessary::MainWindow</name>
    <message>
        <source>Tessary: Virtual Phones</source>
        <translation>Tessary: telefones virtuais</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Sair do Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>Ainda há arquivos sendo copiados.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>Uma sincronização ainda está em andamento.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>Sair cancela isso. O que chegou por inteiro permanece.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importar fotos…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>Arquivos no telefone ainda estão sendo alterados.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>Sair interrompe isso. O que foi feito permanece feito.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>Fechar interrompe isto. O que foi feito permanece feito.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>Funciona com qualquer telefone, sem configuração.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>Mais rápido e vê mais. Requer depuração USB no telefone.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>Obtendo “%1” para abrir…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>Obtendo %Ln arquivo para abrir…</numerusform>
            <numerusform>Obtendo %Ln arquivos para abrir…</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
</context>
<context>
    <name>tessary::Panes</name>
    <message>
        <source>This Computer Beside the Phone</source>
        <translation>Este computador ao lado do telefone</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>Telefone</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importar fotos…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar agora</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Armazenamento</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>Verificando o que o ocupa…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>Pastas sincronizadas</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>Sem fio</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>Explorar fotos</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Explorar arquivos</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar o telefone</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Este telefone está bloqueado</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Ele mostrará seus arquivos quando você o desbloquear e escolher “Transferência de arquivos” na notificação USB. Esta janela se atualiza sozinha.</translation>
    </message>
</context>
<context>
    <name>tessary::PhoneTab</name>
    <message>
        <source>Import Photos</source>
        <translation>Importar fotos</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Este telefone está bloqueado</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Ele mostrará seus arquivos quando você o desbloquear e escolher “Transferência de arquivos” na notificação USB. Esta janela se atualiza sozinha.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar o telefone</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>Câmera e fotos</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imagens</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>Filmes e vídeos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
</context>
<context>
    <name>tessary::PreviewWindow</name>
    <message>
        <source>Cancelled</source>
        <translation>Cancelado</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Próximo</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Página anterior</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Próxima página</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>“%1” é grande demais para uma pré-visualização. Copie-o antes para este computador.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>Não é possível mostrar: está danificado, é grande demais ou está protegido.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>só o início é mostrado</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Página %1 de %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Pré-visualização</translation>
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
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamanho</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Conteúdo</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Data de modificação</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Caminho</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriedades</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>Tipos diversos</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>Parar a contagem</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>Contando o conteúdo</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>Arquivos: %1, pastas: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>A contagem foi interrompida: pode haver mais.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>Pastas que não puderam ser lidas: %1</translation>
    </message>
</context>
<context>
    <name>tessary::SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Geral</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronização</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Atualizações</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Idioma do sistema</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>Escolha o idioma de exibição. As alterações valem imediatamente.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>Abrir a janela como foi deixada</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Buscar atualizações automaticamente</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar atualizações…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Versão</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>Navegue em telefones e copie arquivos nos dois sentidos.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Página na web</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>Comparar cada cópia com o original</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>Uma cópia só vale depois de relida e considerada igual. Isso demora mais.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>Dispositivos sem fio…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>Atalhos rápidos</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>Volumes de armazenamento</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>Dispositivos conectados</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>Nenhum dispositivo</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>Conecte um dispositivo iOS ou Android por USB</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>Solte uma pasta aqui para tê-la à mão.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Remover dos favoritos</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>Remover do gerenciador de arquivos</translation>
    </message>
</context>
<context>
    <name>tessary::SortMenu</name>
    <message>
        <source>Sort By</source>
        <translation>Ordenar por</translation>
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
        <translation>Fechar esta mensagem</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>Sincronização de %1</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>Um arquivo apagado de um lado é apagado do outro, após confirmação</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>Remover os arquivos da origem depois que chegarem</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>Sincronizar esta pasta</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Sentido</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>Nos dois sentidos</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Só para o telefone</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Só para este computador</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Escolher…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>Pasta no telefone</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostrar o que vai acontecer</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>Sincronizar sempre que este telefone for conectado</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>Editar este par</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Deixado de fora</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>Um padrão por linha, pelas regras do .gitignore: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>Nenhuma pasta é sincronizada ainda. Abra uma pasta do telefone e escolha “Sincronizar esta pasta…”.</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>Na fila</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar agora</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>Remover este par</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>Parar de sincronizar estas pastas?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>Nenhum arquivo é apagado em nenhum dos lados.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mais</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>Ainda não sincronizado</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostrar o que vai acontecer</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>Relatórios…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Editar…</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPanel</name>
    <message>
        <source>Sync</source>
        <translation>Sincronização</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>Sincronizar esta pasta…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>Sincronizar tudo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>Deixar como está</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>O que vai acontecer</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Ação</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar agora</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>Comparando as pastas…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>Não é possível comparar as pastas</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln arquivo já é igual</numerusform>
            <numerusform>%Ln arquivos já são iguais</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln arquivo a examinar, %1 a copiar</numerusform>
            <numerusform>%Ln arquivos a examinar, %1 a copiar</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>Manter a deste computador</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>Manter a do telefone</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copiar tudo de novo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>Neste computador</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>No telefone</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>Arquivos a apagar</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Onde</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>editado desde a última sincronização</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Manter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Apagar</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>Criar de novo</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>Apagar arquivos?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln arquivo foi apagado de um lado. Apagá-lo também do outro?</numerusform>
            <numerusform>%Ln arquivos foram apagados de um lado. Apagá-los também do outro?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>O que você mantiver será copiado de volta.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>Pasta ausente</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>A pasta neste computador sumiu</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>Parar sem alterar nada</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>Pasta vazia</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>Copiar tudo para lá de novo?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copiar tudo de novo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>Relatórios</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Execuções</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Arquivos</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>Ainda não há relatório.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>O que foi feito</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>Colunas</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>Abas</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Fechar aba</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>Finalizando: o telefone ainda está gravando o arquivo</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>faltam %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>O Tessary foi encerrado durante esta cópia.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 e mais %Ln</numerusform>
            <numerusform>%1 e mais %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln arquivo</numerusform>
            <numerusform>%1/%Ln arquivos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>“%1” foi copiado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>%Ln item foi copiado.</numerusform>
            <numerusform>%Ln itens foram copiados.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>“%1” não foi copiado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln de %1 itens não foi copiado.</numerusform>
            <numerusform>%Ln de %1 itens não foram copiados.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>A cópia terminou</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>A cópia teve problemas</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>Todas as transferências terminaram</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>faltam %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>Transferências</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>Cancelar tudo</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Limpar concluídos</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>Histórico…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Mover para cima</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Mover para baixo</translation>
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
        <translation>Tamanho</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Data de modificação</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar atualizações…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>Falha ao buscar atualizações</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 é atualmente a versão mais recente.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>Há uma nova versão do Tessary disponível.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 está disponível</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Baixar</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Ignorar esta versão</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Depois</translation>
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
        <translation>Vídeos</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Em uso</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Outros</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Livre</translation>
    </message>
</context>
<context>
    <name>tessary::WelcomeView</name>
    <message>
        <source>Connect a phone</source>
        <translation>Conecte um telefone</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>Experimentar com um telefone virtual</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>Reinicia o Tessary com dois telefones virtuais que contêm arquivos de exemplo</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>Conecte-o</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>Use um cabo de dados: alguns só carregam.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>Desbloqueie-o</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>Um telefone bloqueado não mostra nada do seu armazenamento.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>Permita no telefone</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android: toque na notificação “Carregando este dispositivo via USB” e escolha “Transferência de arquivos”. iPhone: toque em “Confiar”.</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar o telefone</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>Pareando…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>Pareado</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Conectado</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>Aguardando o pareamento</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>Pronto para conectar</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>Dispositivos sem fio</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>Telefones nesta rede com a depuração sem fio ativada.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>Procurando telefones…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>Procurar novamente</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>Este computador não pode procurar telefones na rede: o serviço necessário (avahi-daemon) não está em execução.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>No telefone, ative a depuração sem fio nas opções do desenvolvedor. Ele deve estar na mesma rede que este computador.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>Um telefone que aguarda o pareamento mostra um código de seis dígitos.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>Parear…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Conectar</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>Os seis dígitos que o telefone mostra:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>Parear</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
