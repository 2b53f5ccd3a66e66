<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>BrowserActions</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Go to Folder…</source>
        <translation>Ir a la carpeta…</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Recargar</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nueva carpeta</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Copy Files Here…</source>
        <translation>Copiar archivos aquí…</translation>
    </message>
    <message>
        <source>Copy a Folder Here…</source>
        <translation>Copiar una carpeta aquí…</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
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
        <translation>Como cuadrícula</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Aplicaciones</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronización</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propiedades</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Carpeta superior</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copiar la ruta</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>Mover a…</translation>
    </message>
    <message>
        <source>Copy to…</source>
        <translation>Copiar a…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplicar</translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation>Invertir la selección</translation>
    </message>
    <message>
        <source>Larger Icons</source>
        <translation>Iconos más grandes</translation>
    </message>
    <message>
        <source>Smaller Icons</source>
        <translation>Iconos más pequeños</translation>
    </message>
    <message>
        <source>Icons of Normal Size</source>
        <translation>Iconos de tamaño normal</translation>
    </message>
    <message>
        <source>Hidden Files</source>
        <translation>Archivos ocultos</translation>
    </message>
    <message>
        <source>Copy to Computer</source>
        <translation>Copiar al ordenador</translation>
    </message>
    <message>
        <source>Search Below This Folder</source>
        <translation>Buscar dentro de esta carpeta</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Group by Day</source>
        <translation>Agrupar por días</translation>
    </message>
    <message>
        <source>Select the Day</source>
        <translation>Seleccionar el día</translation>
    </message>
    <message>
        <source>Open in New Tab</source>
        <translation>Abrir en una pestaña nueva</translation>
    </message>
</context>
<context>
    <name>BrowserEdit</name>
    <message>
        <source>New Folder</source>
        <translation>Nueva carpeta</translation>
    </message>
    <message>
        <source>New Folder %1</source>
        <translation>Nueva carpeta %1</translation>
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
        <translation>Ya existe</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«%1» ya existe.</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>Nuevo: %1</translation>
    </message>
    <message>
        <source>There: %1</source>
        <translation>Existente: %1</translation>
    </message>
    <message>
        <source>Replacing merges the folders; files of the same name in them are replaced.</source>
        <translation>Al reemplazar se combinan las carpetas; los archivos del mismo nombre se reemplazan.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Conservar ambos</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Omitir</translation>
    </message>
    <message numerus="yes">
        <source>Do the same for the other %Ln</source>
        <translation>
            <numerusform>Hacer lo mismo con el otro</numerusform>
            <numerusform>Hacer lo mismo con los otros %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Enough Space</source>
        <translation>No hay espacio suficiente</translation>
    </message>
    <message>
        <source>There is not enough space for this copy.</source>
        <translation>No hay espacio suficiente para esta copia.</translation>
    </message>
    <message>
        <source>It needs at least %1, and %2 are free in “%3”.</source>
        <translation>Necesita al menos %1, y en «%3» hay %2 libres.</translation>
    </message>
    <message>
        <source>It needs %1, and %2 are free in “%3”.</source>
        <translation>Necesita %1, y en «%3» hay %2 libres.</translation>
    </message>
    <message>
        <source>Copy Anyway</source>
        <translation>Copiar de todos modos</translation>
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
            <numerusform>%1 y %Ln más</numerusform>
            <numerusform>%1 y %Ln más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied: %2</source>
        <translation>
            <numerusform>%Ln de %1 elementos no se ha copiado: %2</numerusform>
            <numerusform>%Ln de %1 elementos no se han copiado: %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message numerus="yes">
        <source>Delete %Ln items?</source>
        <translation>
            <numerusform>¿Eliminar %Ln elemento?</numerusform>
            <numerusform>¿Eliminar %Ln elementos?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete the folder “%1”?</source>
        <translation>¿Eliminar la carpeta «%1»?</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>¿Eliminar «%1»?</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>y %Ln más</numerusform>
            <numerusform>y %Ln más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items will be moved to the trash.</source>
        <translation>
            <numerusform>Se moverá a la papelera.</numerusform>
            <numerusform>Se moverán %Ln elementos a la papelera.</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Desaparecen al momento y no pasan al álbum «Eliminado» del teléfono.</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Esto no se puede deshacer.</translation>
    </message>
    <message numerus="yes">
        <source>Delete the folder “%1” and the %Ln items in it?</source>
        <translation>
            <numerusform>¿Eliminar la carpeta «%1» y el elemento que contiene?</numerusform>
            <numerusform>¿Eliminar la carpeta «%1» y los %Ln elementos que contiene?</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>A copy is still under way: what it has not read yet will be missing there.</source>
        <translation>Aún hay una copia en curso: lo que todavía no ha leído faltará en ella.</translation>
    </message>
    <message>
        <source>The copy to “%1” is taken back.</source>
        <translation>Se deshace la copia en «%1».</translation>
    </message>
</context>
<context>
    <name>DisplayNames</name>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
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
        <translation>Archivo comprimido</translation>
    </message>
    <message>
        <source>APK Package</source>
        <translation>Paquete APK</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Código fuente</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>iOS File Transfer</source>
        <translation>Transferencia de archivos iOS</translation>
    </message>
    <message>
        <source>Standard MTP</source>
        <translation>MTP estándar</translation>
    </message>
    <message>
        <source>Turbo Mode (ADB)</source>
        <translation>Modo turbo (ADB)</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>En cola</translation>
    </message>
    <message>
        <source>In Progress</source>
        <translation>En curso</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Completado</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fallido</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelado</translation>
    </message>
    <message>
        <source>Internal Storage</source>
        <translation>Almacenamiento interno</translation>
    </message>
    <message>
        <source>SD Card</source>
        <translation>Tarjeta SD</translation>
    </message>
    <message>
        <source>USB Drive</source>
        <translation>Unidad USB</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 libres de %2</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Mover al teléfono</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Solo al teléfono</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Mover a este ordenador</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Solo a este ordenador</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>En ambos sentidos</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos y vídeos</translation>
    </message>
    <message>
        <source>Storage %1</source>
        <translation>Almacenamiento %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Incompleto</translation>
    </message>
    <message>
        <source>No Date</source>
        <translation>Sin fecha</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoy</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ayer</translation>
    </message>
</context>
<context>
    <name>ErrorText</name>
    <message>
        <source>Something went wrong.</source>
        <translation>Algo ha ido mal.</translation>
    </message>
    <message>
        <source>something went wrong</source>
        <translation>algo ha ido mal</translation>
    </message>
    <message>
        <source>.</source>
        <comment>the end of a sentence</comment>
        <translation>.</translation>
    </message>
    <message>
        <source>Another program is using the phone.</source>
        <translation>Otro programa está usando el teléfono.</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Vuelve a conectar el teléfono y desbloquéalo.</translation>
    </message>
    <message>
        <source>Rename it first.</source>
        <translation>Cámbiale antes el nombre.</translation>
    </message>
    <message>
        <source>Unlock the phone and choose “File transfer” on it.</source>
        <translation>Desbloquea el teléfono y elige en él «Transferencia de archivos».</translation>
    </message>
    <message>
        <source>Try again. If that does not help, unplug the phone and plug it in again.</source>
        <translation>Inténtalo de nuevo. Si no sirve, desconecta el teléfono y vuelve a conectarlo.</translation>
    </message>
    <message>
        <source>The phone is not connected.</source>
        <translation>El teléfono no está conectado.</translation>
    </message>
    <message>
        <source>The phone was unplugged.</source>
        <translation>Se desconectó el teléfono.</translation>
    </message>
    <message>
        <source>The phone does not answer.</source>
        <translation>El teléfono no responde.</translation>
    </message>
    <message>
        <source>Unlock it. If that does not help, unplug it and plug it in again.</source>
        <translation>Desbloquéalo. Si no sirve, desconéctalo y vuelve a conectarlo.</translation>
    </message>
    <message>
        <source>The connection to the phone broke off.</source>
        <translation>Se ha cortado la conexión con el teléfono.</translation>
    </message>
    <message>
        <source>%1 is using the phone.</source>
        <translation>%1 está usando el teléfono.</translation>
    </message>
    <message>
        <source>Close it, or unmount the phone in the desktop&apos;s file manager, and try again.</source>
        <translation>Ciérralo o desmonta el teléfono en el gestor de archivos del escritorio e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>This user may not open the phone&apos;s USB device.</source>
        <translation>Este usuario no puede abrir el dispositivo USB del teléfono.</translation>
    </message>
    <message>
        <source>Install the udev rule that comes with Tessary, then plug the phone in again.</source>
        <translation>Instala la regla udev incluida con Tessary y vuelve a conectar el teléfono.</translation>
    </message>
    <message>
        <source>The phone has not allowed this computer yet.</source>
        <translation>El teléfono aún no ha permitido este ordenador.</translation>
    </message>
    <message>
        <source>Unlock the phone and answer its question: tap “Trust” or “Allow”.</source>
        <translation>Desbloquea el teléfono y responde a su pregunta: toca «Confiar» o «Permitir».</translation>
    </message>
    <message>
        <source>The phone has forgotten this computer.</source>
        <translation>El teléfono ha olvidado este ordenador.</translation>
    </message>
    <message>
        <source>Unplug the phone, plug it in again and tap “Trust” on it.</source>
        <translation>Desconecta el teléfono, vuelve a conectarlo y toca «Confiar» en él.</translation>
    </message>
    <message>
        <source>The phone is locked.</source>
        <translation>El teléfono está bloqueado.</translation>
    </message>
    <message>
        <source>Unlock the phone and try again.</source>
        <translation>Desbloquea el teléfono e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>The storage of the phone is not available.</source>
        <translation>El almacenamiento del teléfono no está disponible.</translation>
    </message>
    <message>
        <source>The phone ended the connection.</source>
        <translation>El teléfono cerró la conexión.</translation>
    </message>
    <message>
        <source>The phone cannot be reached.</source>
        <translation>No se puede acceder al teléfono.</translation>
    </message>
    <message>
        <source>Check its cable or its network. On an Android phone, Turbo mode needs USB debugging; Standard MTP works without.</source>
        <translation>Comprueba el cable o la red. En un teléfono Android el modo turbo necesita la depuración USB; MTP estándar funciona sin ella.</translation>
    </message>
    <message>
        <source>The phone&apos;s answers make no sense.</source>
        <translation>Las respuestas del teléfono no tienen sentido.</translation>
    </message>
    <message>
        <source>Unplug the phone and plug it in again.</source>
        <translation>Desconecta el teléfono y vuelve a conectarlo.</translation>
    </message>
    <message>
        <source>The phone is busy with another copy.</source>
        <translation>El teléfono está ocupado con otra copia.</translation>
    </message>
    <message>
        <source>Try again when that one is done.</source>
        <translation>Inténtalo de nuevo cuando termine.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>No hay ningún «%1» en el teléfono.</translation>
    </message>
    <message>
        <source>it is not on the phone any more</source>
        <translation>ya no está en el teléfono</translation>
    </message>
    <message>
        <source>It may have been deleted or renamed: refresh the folder.</source>
        <translation>Puede que se haya eliminado o renombrado: actualiza la carpeta.</translation>
    </message>
    <message>
        <source>“%1” is already there.</source>
        <translation>«%1» ya está ahí.</translation>
    </message>
    <message>
        <source>its name is already taken</source>
        <translation>su nombre ya está en uso</translation>
    </message>
    <message>
        <source>“%1” is on the phone, which takes “%2” for the same name.</source>
        <translation>«%1» está en el teléfono, que toma «%2» por el mismo nombre.</translation>
    </message>
    <message>
        <source>the phone takes its name for that of another item</source>
        <translation>el teléfono toma su nombre por el de otro elemento</translation>
    </message>
    <message>
        <source>Rename one of the two first.</source>
        <translation>Cambia antes el nombre de uno de los dos.</translation>
    </message>
    <message>
        <source>“%1” is not a folder.</source>
        <translation>«%1» no es una carpeta.</translation>
    </message>
    <message>
        <source>it is not a folder</source>
        <translation>no es una carpeta</translation>
    </message>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«%1» no es un archivo.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>no es un archivo</translation>
    </message>
    <message>
        <source>The folder “%1” is not empty.</source>
        <translation>La carpeta «%1» no está vacía.</translation>
    </message>
    <message>
        <source>the folder is not empty</source>
        <translation>la carpeta no está vacía</translation>
    </message>
    <message>
        <source>“%1” cannot be a name on the phone.</source>
        <translation>«%1» no puede ser un nombre en el teléfono.</translation>
    </message>
    <message>
        <source>the phone does not allow its name</source>
        <translation>el teléfono no permite su nombre</translation>
    </message>
    <message>
        <source>The phone does not allow this with “%1”.</source>
        <translation>El teléfono no permite esto con «%1».</translation>
    </message>
    <message>
        <source>the phone does not allow it</source>
        <translation>el teléfono no lo permite</translation>
    </message>
    <message>
        <source>Unlock it, and try another folder.</source>
        <translation>Desbloquéalo y prueba con otra carpeta.</translation>
    </message>
    <message>
        <source>“%1” is write-protected on the phone.</source>
        <translation>«%1» está protegido contra escritura en el teléfono.</translation>
    </message>
    <message>
        <source>it is write-protected on the phone</source>
        <translation>está protegido contra escritura en el teléfono</translation>
    </message>
    <message>
        <source>Choose another folder.</source>
        <translation>Elige otra carpeta.</translation>
    </message>
    <message>
        <source>“%1” is too large for this storage of the phone.</source>
        <translation>«%1» es demasiado grande para este almacenamiento del teléfono.</translation>
    </message>
    <message>
        <source>it is too large for this storage of the phone</source>
        <translation>es demasiado grande para este almacenamiento del teléfono</translation>
    </message>
    <message>
        <source>“%1” has changed on the phone meanwhile. It was left as it is.</source>
        <translation>«%1» ha cambiado mientras tanto en el teléfono. Se ha dejado como está.</translation>
    </message>
    <message>
        <source>it has changed on the phone meanwhile</source>
        <translation>ha cambiado mientras tanto en el teléfono</translation>
    </message>
    <message>
        <source>Refresh the folder and try again.</source>
        <translation>Actualiza la carpeta e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>«%1» no se puede leer.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>no se puede leer</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be read whole.</source>
        <translation>La carpeta «%1» no se puede leer por completo.</translation>
    </message>
    <message>
        <source>the folder cannot be read whole</source>
        <translation>la carpeta no se puede leer por completo</translation>
    </message>
    <message>
        <source>The phone sent %2 of the %3 bytes of “%1”.</source>
        <translation>El teléfono envió %2 de los %3 bytes de «%1».</translation>
    </message>
    <message>
        <source>its size is not the one that was announced</source>
        <translation>su tamaño no es el anunciado</translation>
    </message>
    <message>
        <source>Copy it again.</source>
        <translation>Cópialo de nuevo.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot lie inside itself.</source>
        <translation>La carpeta «%1» no puede estar dentro de sí misma.</translation>
    </message>
    <message>
        <source>a folder cannot lie inside itself</source>
        <translation>una carpeta no puede estar dentro de sí misma</translation>
    </message>
    <message>
        <source>A whole storage cannot be changed or copied as one item.</source>
        <translation>Un almacenamiento entero no se puede cambiar ni copiar como un solo elemento.</translation>
    </message>
    <message>
        <source>a whole storage cannot be changed or copied as one item</source>
        <translation>un almacenamiento entero no se puede cambiar ni copiar como un solo elemento</translation>
    </message>
    <message>
        <source>The phone cannot move “%1” to another storage.</source>
        <translation>El teléfono no puede mover «%1» a otro almacenamiento.</translation>
    </message>
    <message>
        <source>the phone cannot move it to another storage</source>
        <translation>el teléfono no puede moverlo a otro almacenamiento</translation>
    </message>
    <message>
        <source>Copy it instead.</source>
        <translation>Cópialo en su lugar.</translation>
    </message>
    <message>
        <source>The phone cannot do this.</source>
        <translation>El teléfono no puede hacer esto.</translation>
    </message>
    <message>
        <source>the phone cannot do this</source>
        <translation>el teléfono no puede hacer esto</translation>
    </message>
    <message>
        <source>The phone refused this for “%1”.</source>
        <translation>El teléfono lo ha rechazado para «%1».</translation>
    </message>
    <message>
        <source>the phone refused it</source>
        <translation>el teléfono lo ha rechazado</translation>
    </message>
    <message>
        <source>The phone agreed, but did nothing with “%1”.</source>
        <translation>El teléfono aceptó, pero no hizo nada con «%1».</translation>
    </message>
    <message>
        <source>the phone agreed, but did nothing</source>
        <translation>el teléfono aceptó, pero no hizo nada</translation>
    </message>
    <message>
        <source>The storage of the phone is full.</source>
        <translation>El almacenamiento del teléfono está lleno.</translation>
    </message>
    <message>
        <source>the storage of the phone is full</source>
        <translation>el almacenamiento del teléfono está lleno</translation>
    </message>
    <message>
        <source>Delete something on the phone, or copy less.</source>
        <translation>Elimina algo en el teléfono o copia menos.</translation>
    </message>
    <message>
        <source>“%1” cannot be read: %2</source>
        <translation>«%1» no se puede leer: %2</translation>
    </message>
    <message>
        <source>“%1” cannot be written: %2</source>
        <translation>«%1» no se puede escribir: %2</translation>
    </message>
    <message>
        <source>it cannot be written on this computer</source>
        <translation>no se puede escribir en este ordenador</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be created: %2</source>
        <translation>No se puede crear la carpeta «%1»: %2</translation>
    </message>
    <message>
        <source>the folder cannot be created on this computer</source>
        <translation>la carpeta no se puede crear en este ordenador</translation>
    </message>
    <message>
        <source>“%1” cannot be deleted: %2</source>
        <translation>«%1» no se puede eliminar: %2</translation>
    </message>
    <message>
        <source>it cannot be deleted on this computer</source>
        <translation>no se puede eliminar en este ordenador</translation>
    </message>
    <message>
        <source>“%1” cannot be renamed: %2</source>
        <translation>No se puede cambiar el nombre de «%1»: %2</translation>
    </message>
    <message>
        <source>it cannot be renamed on this computer</source>
        <translation>no se puede cambiar su nombre en este ordenador</translation>
    </message>
    <message>
        <source>“%1” is not on this computer any more.</source>
        <translation>«%1» ya no está en este ordenador.</translation>
    </message>
    <message>
        <source>it is not on this computer any more</source>
        <translation>ya no está en este ordenador</translation>
    </message>
    <message>
        <source>“%1” is not a regular file.</source>
        <translation>«%1» no es un archivo normal.</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>A folder is where the file “%1” should be.</source>
        <translation>Hay una carpeta donde debería estar el archivo «%1».</translation>
    </message>
    <message>
        <source>a folder of this name is on this computer</source>
        <translation>en este ordenador hay una carpeta con este nombre</translation>
    </message>
    <message>
        <source>A file is where the folder “%1” should be.</source>
        <translation>Hay un archivo donde debería estar la carpeta «%1».</translation>
    </message>
    <message>
        <source>a file of this name is on this computer</source>
        <translation>hay un archivo con este nombre en este ordenador</translation>
    </message>
    <message>
        <source>“%1” changed while it was being copied.</source>
        <translation>«%1» cambió mientras se copiaba.</translation>
    </message>
    <message>
        <source>it changed while it was being copied</source>
        <translation>cambió mientras se copiaba</translation>
    </message>
    <message>
        <source>The name “%1” cannot be used on this computer.</source>
        <translation>El nombre «%1» no se puede usar en este ordenador.</translation>
    </message>
    <message>
        <source>its name cannot be used on this computer</source>
        <translation>su nombre no se puede usar en este ordenador</translation>
    </message>
    <message>
        <source>The name “%1” is too long for this computer.</source>
        <translation>El nombre «%1» es demasiado largo para este ordenador.</translation>
    </message>
    <message>
        <source>its name is too long for this computer</source>
        <translation>su nombre es demasiado largo para este ordenador</translation>
    </message>
    <message>
        <source>“%1” leads out of the folder that is copied to.</source>
        <translation>«%1» lleva fuera de la carpeta de destino.</translation>
    </message>
    <message>
        <source>it leads out of the folder that is copied to</source>
        <translation>lleva fuera de la carpeta de destino</translation>
    </message>
    <message>
        <source>“%1” is a link; links are not followed.</source>
        <translation>«%1» es un enlace; los enlaces no se siguen.</translation>
    </message>
    <message>
        <source>it is a link; links are not followed</source>
        <translation>es un enlace; los enlaces no se siguen</translation>
    </message>
    <message>
        <source>No space is left on the disk of “%1”.</source>
        <translation>No queda espacio en el disco de «%1».</translation>
    </message>
    <message>
        <source>no space is left on this computer&apos;s disk</source>
        <translation>no queda espacio en el disco de este ordenador</translation>
    </message>
    <message>
        <source>Delete something there, or choose another folder.</source>
        <translation>Elimina algo allí o elige otra carpeta.</translation>
    </message>
    <message>
        <source>Install the adb tool, or switch the phone to Standard MTP.</source>
        <translation>Instala la herramienta adb o cambia el teléfono a MTP estándar.</translation>
    </message>
    <message>
        <source>This computer&apos;s key for USB debugging cannot be used.</source>
        <translation>La clave de este ordenador para la depuración USB no se puede usar.</translation>
    </message>
    <message>
        <source>Switch the phone to Standard MTP.</source>
        <translation>Cambia el teléfono a MTP estándar.</translation>
    </message>
    <message>
        <source>adb&apos;s server does not answer.</source>
        <translation>El servidor de adb no responde.</translation>
    </message>
    <message>
        <source>adb is not installed.</source>
        <translation>adb no está instalado.</translation>
    </message>
    <message>
        <source>adb does not reach the phone.</source>
        <translation>adb no llega al teléfono.</translation>
    </message>
    <message>
        <source>Turn on USB debugging on it, or switch to Standard MTP.</source>
        <translation>Activa en él la depuración USB o cambia a MTP estándar.</translation>
    </message>
    <message>
        <source>adb reaches several phones and cannot tell which one is meant.</source>
        <translation>adb llega a varios teléfonos y no sabe cuál es.</translation>
    </message>
    <message>
        <source>Unplug the others, or switch to Standard MTP.</source>
        <translation>Desconecta los demás o cambia a MTP estándar.</translation>
    </message>
    <message>
        <source>The phone is offline for adb.</source>
        <translation>El teléfono está sin conexión para adb.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again, or turn USB debugging off and on.</source>
        <translation>Desconéctalo y vuelve a conectarlo, o desactiva y activa la depuración USB.</translation>
    </message>
    <message>
        <source>The phone&apos;s Android is too old for Turbo mode.</source>
        <translation>El Android del teléfono es demasiado antiguo para el modo turbo.</translation>
    </message>
    <message>
        <source>The name “%1” is not valid text.</source>
        <translation>El nombre «%1» no es texto válido.</translation>
    </message>
    <message>
        <source>its name is not valid text</source>
        <translation>su nombre no es un texto válido</translation>
    </message>
    <message>
        <source>The path of “%1” is too long.</source>
        <translation>La ruta de «%1» es demasiado larga.</translation>
    </message>
    <message>
        <source>its path is too long</source>
        <translation>su ruta es demasiado larga</translation>
    </message>
    <message>
        <source>Please try again later.</source>
        <translation>Inténtalo de nuevo más tarde.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>El servidor no respondió a tiempo.</translation>
    </message>
    <message>
        <source>The server&apos;s answer is too long.</source>
        <translation>La respuesta del servidor es demasiado larga.</translation>
    </message>
    <message>
        <source>The server&apos;s address is not a safe one.</source>
        <translation>La dirección del servidor no es segura.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>El servidor redirige sin fin.</translation>
    </message>
    <message>
        <source>The server&apos;s answer was cut off.</source>
        <translation>La respuesta del servidor se cortó.</translation>
    </message>
    <message>
        <source>The server cannot be reached: %1</source>
        <translation>No se puede acceder al servidor: %1</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>no se puede acceder al servidor</translation>
    </message>
    <message>
        <source>The server answered with the error %1.</source>
        <translation>El servidor respondió con el error %1.</translation>
    </message>
    <message>
        <source>the server answered with an error</source>
        <translation>el servidor respondió con un error</translation>
    </message>
    <message>
        <source>The server&apos;s answer is not what it should be.</source>
        <translation>La respuesta del servidor no es la esperada.</translation>
    </message>
    <message>
        <source>This computer&apos;s adb is too old to pair.</source>
        <translation>El adb de este ordenador es demasiado antiguo para emparejar.</translation>
    </message>
    <message>
        <source>Version 30 or newer is needed.</source>
        <translation>Se necesita la versión 30 o posterior.</translation>
    </message>
    <message>
        <source>adb could not reach the phone: %2</source>
        <translation>adb no pudo llegar al teléfono: %2</translation>
    </message>
    <message>
        <source>adb could not reach the phone</source>
        <translation>adb no pudo llegar al teléfono</translation>
    </message>
    <message>
        <source>Unlock it and tap “Allow” in the question about debugging.</source>
        <translation>Desbloquéalo y toca «Permitir» en la pregunta sobre la depuración.</translation>
    </message>
    <message>
        <source>Turbo mode needs adb, which is not installed. The phone is used over Standard MTP instead.</source>
        <translation>El modo turbo necesita adb, que no está instalado. En su lugar se usa el teléfono por MTP estándar.</translation>
    </message>
    <message>
        <source>“%1” changed while the folders were being synced. It was left as it is.</source>
        <translation>«%1» cambió mientras se sincronizaban las carpetas. Se dejó como está.</translation>
    </message>
    <message>
        <source>it changed while the folders were being synced</source>
        <translation>cambió mientras se sincronizaban las carpetas</translation>
    </message>
    <message>
        <source>“%1” is a file on one side and a folder on the other.</source>
        <translation>«%1» es un archivo en un lado y una carpeta en el otro.</translation>
    </message>
    <message>
        <source>it is a file on one side and a folder on the other</source>
        <translation>es un archivo en un lado y una carpeta en el otro</translation>
    </message>
    <message>
        <source>Another name differs from “%1” only in case or in the form of its letters.</source>
        <translation>Otro nombre difiere de «%1» solo en mayúsculas o en la forma de las letras.</translation>
    </message>
    <message>
        <source>another name differs from it only in case or in the form of its letters</source>
        <translation>otro nombre solo se diferencia en mayúsculas o en la forma de las letras</translation>
    </message>
    <message>
        <source>What is in the folder “%1” could not be read on one side.</source>
        <translation>No se pudo leer el contenido de la carpeta «%1» en un lado.</translation>
    </message>
    <message>
        <source>its folder could not be read on one side</source>
        <translation>no se pudo leer su carpeta en un lado</translation>
    </message>
    <message>
        <source>The folder of “%1” holds something that could not be read.</source>
        <translation>La carpeta de «%1» contiene algo que no se pudo leer.</translation>
    </message>
    <message>
        <source>its folder holds something that could not be read</source>
        <translation>su carpeta contiene algo que no se pudo leer</translation>
    </message>
    <message>
        <source>“%1” was changed on the side that files are only copied to.</source>
        <translation>«%1» se cambió en el lado al que solo se copian archivos.</translation>
    </message>
    <message>
        <source>it was changed on the side that files are only copied to</source>
        <translation>se cambió en el lado al que solo se copian archivos</translation>
    </message>
    <message>
        <source>“%1” was left as it is.</source>
        <translation>«%1» se dejó como está.</translation>
    </message>
    <message>
        <source>it was to be left as it is</source>
        <translation>debía quedar como está</translation>
    </message>
    <message>
        <source>The phone does not tell the size of “%1”.</source>
        <translation>El teléfono no indica el tamaño de «%1».</translation>
    </message>
    <message>
        <source>the phone does not tell its size</source>
        <translation>el teléfono no indica su tamaño</translation>
    </message>
    <message>
        <source>The phone has several entries called “%1”.</source>
        <translation>El teléfono tiene varios elementos llamados «%1».</translation>
    </message>
    <message>
        <source>the phone has several entries of this name</source>
        <translation>el teléfono tiene varios elementos con este nombre</translation>
    </message>
    <message>
        <source>The folder “%1” lies too deep.</source>
        <translation>La carpeta «%1» está a demasiada profundidad.</translation>
    </message>
    <message>
        <source>the folder lies too deep</source>
        <translation>la carpeta está a demasiada profundidad</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>No se cambió nada.</translation>
    </message>
    <message>
        <source>The folder “%1” was synced before and is gone.</source>
        <translation>La carpeta «%1» ya se sincronizó y ha desaparecido.</translation>
    </message>
    <message>
        <source>Plug its disk in, or make the folder again.</source>
        <translation>Conecta su disco o vuelve a crear la carpeta.</translation>
    </message>
    <message>
        <source>What was synced could not be noted down in “%1”.</source>
        <translation>No se pudo anotar en «%1» lo que se sincronizó.</translation>
    </message>
    <message>
        <source>what was synced could not be noted down</source>
        <translation>no se pudo anotar lo que se sincronizó</translation>
    </message>
    <message>
        <source>The next sync cannot tell what was deleted since: it copies such files back.</source>
        <translation>La próxima sincronización no sabrá qué se eliminó desde entonces: volverá a copiar esos archivos.</translation>
    </message>
    <message>
        <source>Delete something on that disk. Files lie there while they are on their way.</source>
        <translation>Elimina algo de ese disco. Los archivos están ahí mientras van de camino.</translation>
    </message>
    <message>
        <source>Others may change what is in “%1”.</source>
        <translation>Otros pueden cambiar el contenido de «%1».</translation>
    </message>
    <message>
        <source>others may change what is in the folder</source>
        <translation>otros pueden cambiar el contenido de la carpeta</translation>
    </message>
    <message>
        <source>Let no other user write to that folder.</source>
        <translation>No permitas que ningún otro usuario escriba en esa carpeta.</translation>
    </message>
    <message>
        <source>The copy of “%1” was not equal to its original. It was removed again.</source>
        <translation>La copia de «%1» no era igual a su original. Se ha quitado.</translation>
    </message>
    <message>
        <source>the copy was not equal to its original</source>
        <translation>la copia no era igual a su original</translation>
    </message>
    <message>
        <source>“%1” has changed since it was copied. It was left as it is.</source>
        <translation>«%1» ha cambiado desde que se copió. Se ha dejado como está.</translation>
    </message>
    <message>
        <source>it has changed since it was copied</source>
        <translation>ha cambiado desde que se copió</translation>
    </message>
    <message>
        <source>Delete it yourself if you do not need it.</source>
        <translation>Elimínalo tú mismo si no lo necesitas.</translation>
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
        <translation>Dispositivos inalámbricos…</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Salir de Tessary</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ver</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Ir</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Copy History…</source>
        <translation>Historial de copias…</translation>
    </message>
    <message>
        <source>New Window</source>
        <translation>Nueva ventana</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Nueva pestaña</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Cerrar pestaña</translation>
    </message>
    <message>
        <source>Next Tab</source>
        <translation>Pestaña siguiente</translation>
    </message>
    <message>
        <source>Previous Tab</source>
        <translation>Pestaña anterior</translation>
    </message>
</context>
<context>
    <name>ProblemText</name>
    <message>
        <source>The folder was not read.</source>
        <translation>No se leyó la carpeta.</translation>
    </message>
    <message>
        <source>Refresh it to try again.</source>
        <translation>Actualízala para volver a intentarlo.</translation>
    </message>
    <message>
        <source>The apps were not read.</source>
        <translation>No se leyeron las apps.</translation>
    </message>
    <message>
        <source>Refresh the list to try again.</source>
        <translation>Actualiza la lista para volver a intentarlo.</translation>
    </message>
    <message>
        <source>Go up to the folder that held it.</source>
        <translation>Sube a la carpeta que la contenía.</translation>
    </message>
    <message>
        <source>Check the spelling, or choose the folder below.</source>
        <translation>Comprueba la ortografía o elige la carpeta más abajo.</translation>
    </message>
    <message>
        <source>Another folder is shown by now. Nothing was done.</source>
        <translation>Ahora se muestra otra carpeta. No se ha hecho nada.</translation>
    </message>
    <message>
        <source>“%1” could not be created: %2</source>
        <translation>No se ha podido crear «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be renamed: %2</source>
        <translation>No se ha podido cambiar el nombre de «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be moved: %2</source>
        <translation>No se ha podido mover «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be deleted: %2</source>
        <translation>No se ha podido eliminar «%1»: %2</translation>
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
            <numerusform>%1 y %Ln más</numerusform>
            <numerusform>%1 y %Ln más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be moved: %2</source>
        <translation>
            <numerusform>No se ha podido mover %Ln de %1 elementos: %2</numerusform>
            <numerusform>No se han podido mover %Ln de %1 elementos: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items could not be deleted: %2</source>
        <translation>
            <numerusform>No se ha podido eliminar %Ln de %1 elementos: %2</numerusform>
            <numerusform>No se han podido eliminar %Ln de %1 elementos: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is not on the phone any more.</source>
        <translation>La carpeta «%1» ya no está en el teléfono.</translation>
    </message>
    <message>
        <source>There is no “%1” on the phone.</source>
        <translation>No hay ningún «%1» en el teléfono.</translation>
    </message>
    <message>
        <source>“%1” could not be fetched: %2</source>
        <translation>No se pudo obtener «%1»: %2</translation>
    </message>
    <message>
        <source>The search was stopped. What it had found is shown.</source>
        <translation>Se detuvo la búsqueda. Se muestra lo que había encontrado.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: no program for it was found, or it did not start.</source>
        <translation>No se pudo abrir «%1»: no se encontró ningún programa para ello o no se inició.</translation>
    </message>
    <message>
        <source>Folders cannot be dragged to other programs here.</source>
        <translation>Aquí no se pueden arrastrar carpetas a otros programas.</translation>
    </message>
    <message>
        <source>Copy it to this computer first.</source>
        <translation>Cópialo antes en este ordenador.</translation>
    </message>
    <message>
        <source>“%1” takes too long to be copied while it is dragged.</source>
        <translation>«%1» tarda demasiado en copiarse mientras se arrastra.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sí</translation>
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
        <translation>Liberar el teléfono</translation>
    </message>
    <message>
        <source>To release the phone, these programs are ended: %1</source>
        <translation>Para liberar el teléfono se cierran estos programas: %1</translation>
    </message>
    <message>
        <source>What they are copying breaks off, and the folders of phones that they show close. Changes to files on a phone that are not saved yet may be lost.</source>
        <translation>Lo que están copiando se interrumpe y las carpetas de teléfonos que muestran se cierran. Los cambios sin guardar en archivos de un teléfono pueden perderse.</translation>
    </message>
    <message>
        <source>End Programs</source>
        <translation>Cerrar los programas</translation>
    </message>
</context>
<context>
    <name>SharedWords</name>
    <message>
        <source>Apps</source>
        <translation>Aplicaciones</translation>
    </message>
    <message>
        <source>Open in File Manager</source>
        <translation>Abrir en el gestor de archivos</translation>
    </message>
    <message>
        <source>Folder on this computer</source>
        <translation>Carpeta en este ordenador</translation>
    </message>
</context>
<context>
    <name>SyncFileList</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
</context>
<context>
    <name>SyncTexts</name>
    <message>
        <source>Copy to the phone</source>
        <translation>Copiar al teléfono</translation>
    </message>
    <message>
        <source>Replace on the phone</source>
        <translation>Reemplazar en el teléfono</translation>
    </message>
    <message>
        <source>Copy to this computer</source>
        <translation>Copiar a este ordenador</translation>
    </message>
    <message>
        <source>Replace on this computer</source>
        <translation>Reemplazar en este ordenador</translation>
    </message>
    <message>
        <source>Move to the phone</source>
        <translation>Mover al teléfono</translation>
    </message>
    <message>
        <source>Move to this computer</source>
        <translation>Mover a este ordenador</translation>
    </message>
    <message>
        <source>Keep both versions</source>
        <translation>Conservar ambas versiones</translation>
    </message>
    <message>
        <source>Delete on the phone</source>
        <translation>Eliminar en el teléfono</translation>
    </message>
    <message>
        <source>Delete on this computer</source>
        <translation>Eliminar en este ordenador</translation>
    </message>
    <message>
        <source>Rename on the phone</source>
        <translation>Cambiar nombre en el teléfono</translation>
    </message>
    <message>
        <source>Rename on this computer</source>
        <translation>Cambiar nombre en este ordenador</translation>
    </message>
    <message>
        <source>Connecting to device…</source>
        <translation>Conectando con el dispositivo…</translation>
    </message>
    <message>
        <source>Waiting for another sync…</source>
        <translation>Esperando a otra sincronización…</translation>
    </message>
    <message>
        <source>Scanning folders…</source>
        <translation>Examinando carpetas…</translation>
    </message>
    <message>
        <source>Awaiting deletion confirmation…</source>
        <translation>Esperando confirmación para eliminar…</translation>
    </message>
    <message>
        <source>Analyzing files…</source>
        <translation>Analizando archivos…</translation>
    </message>
    <message>
        <source>Starting transfer…</source>
        <translation>Iniciando transferencia…</translation>
    </message>
    <message>
        <source>Uploading</source>
        <translation>Subiendo</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Descargando</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>Moviendo</translation>
    </message>
    <message>
        <source>Moving (already on destination)</source>
        <translation>Moviendo (ya está en el destino)</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Al día</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are deleted on the other after you agreed.</source>
        <translation>Los archivos nuevos y modificados se copian en ambos sentidos. Los que se eliminan en un lado se eliminan en el otro cuando lo aceptas.</translation>
    </message>
    <message>
        <source>New and changed files are copied both ways. Files deleted on one side are copied back.</source>
        <translation>Los archivos nuevos y modificados se copian en ambos sentidos. Los que se eliminan en un lado se vuelven a copiar.</translation>
    </message>
    <message>
        <source>Files are moved to the phone: each is deleted here once it has arrived.</source>
        <translation>Los archivos se mueven al teléfono: cada uno se elimina aquí cuando ha llegado.</translation>
    </message>
    <message>
        <source>New and changed files are copied to the phone. Nothing is deleted.</source>
        <translation>Los archivos nuevos y modificados se copian al teléfono. No se elimina nada.</translation>
    </message>
    <message>
        <source>Files are moved here: each is deleted on the phone once it has arrived.</source>
        <translation>Los archivos se mueven aquí: cada uno se elimina del teléfono cuando ha llegado.</translation>
    </message>
    <message>
        <source>New and changed files of the phone are copied here. Nothing is deleted.</source>
        <translation>Los archivos nuevos y modificados del teléfono se copian aquí. No se elimina nada.</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Eliminando</translation>
    </message>
    <message numerus="yes">
        <source>The folder on this computer is empty, although %Ln files were in it after the last sync. Is its disk missing?</source>
        <translation>
            <numerusform>La carpeta de este ordenador está vacía, aunque contenía %Ln archivo tras la última sincronización. ¿Falta su disco?</numerusform>
            <numerusform>La carpeta de este ordenador está vacía, aunque contenía %Ln archivos tras la última sincronización. ¿Falta su disco?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The folder on the phone is empty, although %Ln files were in it after the last sync. Is its memory card missing?</source>
        <translation>
            <numerusform>La carpeta del teléfono está vacía, aunque contenía %Ln archivo tras la última sincronización. ¿Falta su tarjeta de memoria?</numerusform>
            <numerusform>La carpeta del teléfono está vacía, aunque contenía %Ln archivos tras la última sincronización. ¿Falta su tarjeta de memoria?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than half of the %Ln files of the last sync would be deleted.</source>
        <translation>
            <numerusform>Se eliminaría más de la mitad del %Ln archivo de la última sincronización.</numerusform>
            <numerusform>Se eliminaría más de la mitad de los %Ln archivos de la última sincronización.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelado</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were left as they are</source>
        <translation>
            <numerusform>%Ln archivo se dejó como está</numerusform>
            <numerusform>%Ln archivos se dejaron como están</numerusform>
        </translation>
    </message>
    <message>
        <source>The sync with %1 was not finished.</source>
        <translation>La sincronización con %1 no se completó.</translation>
    </message>
    <message>
        <source>The sync with %1 left some files as they are.</source>
        <translation>La sincronización con %1 dejó algunos archivos como están.</translation>
    </message>
    <message>
        <source>Copied to the phone</source>
        <translation>Copiado al teléfono</translation>
    </message>
    <message>
        <source>Replaced on the phone</source>
        <translation>Reemplazado en el teléfono</translation>
    </message>
    <message>
        <source>Copied to this computer</source>
        <translation>Copiado a este ordenador</translation>
    </message>
    <message>
        <source>Replaced on this computer</source>
        <translation>Reemplazado en este ordenador</translation>
    </message>
    <message>
        <source>Moved to the phone</source>
        <translation>Movido al teléfono</translation>
    </message>
    <message>
        <source>Moved to this computer</source>
        <translation>Movido a este ordenador</translation>
    </message>
    <message>
        <source>Kept both versions</source>
        <translation>Se conservaron ambas versiones</translation>
    </message>
    <message>
        <source>Deleted on the phone</source>
        <translation>Eliminado en el teléfono</translation>
    </message>
    <message>
        <source>Deleted on this computer</source>
        <translation>Eliminado en este ordenador</translation>
    </message>
    <message>
        <source>Renamed on the phone</source>
        <translation>Renombrado en el teléfono</translation>
    </message>
    <message>
        <source>Renamed on this computer</source>
        <translation>Renombrado en este ordenador</translation>
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
        <translation>Buscando apps…</translation>
    </message>
    <message>
        <source>No Apps That Share Files</source>
        <translation>Ninguna app comparte archivos</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>No Matching Apps</source>
        <translation>Ninguna app coincide</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Borrar el filtro</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Error de conexión</translation>
    </message>
    <message>
        <source>Only apps whose makers turned on file sharing can be opened from a computer. The photos and videos can be opened.</source>
        <translation>Desde un ordenador solo se pueden abrir las apps cuyos creadores activaron el uso compartido de archivos. Las fotos y los vídeos sí se pueden abrir.</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos y vídeos</translation>
    </message>
    <message>
        <source>What the camera took, and what was saved with it</source>
        <translation>Lo que captó la cámara y lo que se guardó con ello</translation>
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
        <translation>Ruta</translation>
    </message>
    <message>
        <source>Folders in between</source>
        <translation>Carpetas intermedias</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserToolbar</name>
    <message>
        <source>View Mode</source>
        <translation>Modo de vista</translation>
    </message>
    <message>
        <source>Filter…</source>
        <translation>Filtrar…</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Borrar el filtro</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Ruta</translation>
    </message>
    <message>
        <source>Copy to Phone</source>
        <translation>Copiar al teléfono</translation>
    </message>
    <message>
        <source>Search below…</source>
        <translation>Buscar dentro…</translation>
    </message>
    <message>
        <source>More Commands</source>
        <translation>Más comandos</translation>
    </message>
</context>
<context>
    <name>tessary::BrowserView</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln seleccionado</numerusform>
            <numerusform>%Ln seleccionados</numerusform>
        </translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln items</source>
        <translation>
            <numerusform>%1 de %Ln elemento</numerusform>
            <numerusform>%1 de %Ln elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 done (Esc stops)</source>
        <translation>%1 de %2 hechos (Esc detiene)</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>leyendo…</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Into “%1”</source>
        <translation>En «%1»</translation>
    </message>
    <message>
        <source>searching…</source>
        <translation>buscando…</translation>
    </message>
    <message>
        <source>(Esc stops)</source>
        <translation>(Esc detiene)</translation>
    </message>
</context>
<context>
    <name>tessary::CopyCommands</name>
    <message>
        <source>Copy to</source>
        <translation>Copiar en</translation>
    </message>
    <message>
        <source>Copy Files to the Phone</source>
        <translation>Copiar archivos al teléfono</translation>
    </message>
    <message>
        <source>Copy a Folder to the Phone</source>
        <translation>Copiar una carpeta al teléfono</translation>
    </message>
    <message>
        <source>Move to</source>
        <translation>Mover a</translation>
    </message>
    <message>
        <source>Move Here</source>
        <translation>Mover aquí</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copiar aquí</translation>
    </message>
</context>
<context>
    <name>tessary::CopyHistoryDialog</name>
    <message>
        <source>Copy History</source>
        <translation>Historial de copias</translation>
    </message>
    <message>
        <source>Search copies</source>
        <translation>Buscar copias</translation>
    </message>
    <message>
        <source>What was left out</source>
        <translation>Lo que se omitió</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Por qué</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Clear History…</source>
        <translation>Vaciar historial…</translation>
    </message>
    <message>
        <source>Nothing has been copied yet.</source>
        <translation>Todavía no se ha copiado nada.</translation>
    </message>
    <message>
        <source>No copy matches this search.</source>
        <translation>Ninguna copia coincide con esta búsqueda.</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Vaciar historial</translation>
    </message>
    <message>
        <source>Forget which copies were made?</source>
        <translation>¿Olvidar qué copias se hicieron?</translation>
    </message>
    <message>
        <source>The copied files stay. Copies that broke off are not offered again.</source>
        <translation>Los archivos copiados permanecen. Las copias interrumpidas no se vuelven a ofrecer.</translation>
    </message>
</context>
<context>
    <name>tessary::DeviceListModel</name>
    <message>
        <source>Needs your attention</source>
        <translation>Requiere su atención</translation>
    </message>
    <message>
        <source>Battery %1 %</source>
        <translation>Batería %1 %</translation>
    </message>
    <message>
        <source>Locked: unlock it</source>
        <translation>Bloqueado: desbloquéalo</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>Reading storage…</source>
        <translation>Leyendo el almacenamiento…</translation>
    </message>
    <message>
        <source>Open in the file manager</source>
        <translation>Abierto en el gestor de archivos</translation>
    </message>
</context>
<context>
    <name>tessary::EntryCommands</name>
    <message>
        <source>Open With</source>
        <translation>Abrir con</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>Buscando programas…</translation>
    </message>
    <message>
        <source>No program is known for this</source>
        <translation>No se conoce ningún programa para esto</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>Deshacer el cambio de nombre</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>Deshacer el movimiento</translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>Deshacer la nueva carpeta</translation>
    </message>
    <message>
        <source>Undo Copy</source>
        <translation>Deshacer la copia</translation>
    </message>
    <message>
        <source>Open %1 folders, each in its own tab?</source>
        <translation>¿Abrir %1 carpetas, cada una en su propia pestaña?</translation>
    </message>
</context>
<context>
    <name>tessary::EntryDrop</name>
    <message>
        <source>Move Here</source>
        <translation>Mover aquí</translation>
    </message>
    <message>
        <source>Copy Here</source>
        <translation>Copiar aquí</translation>
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
        <translation>Detalles</translation>
    </message>
    <message>
        <source>Copy Details</source>
        <translation>Copiar los detalles</translation>
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
        <translation>Obteniendo el archivo</translation>
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
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FileItemDelegate</name>
    <message>
        <source>Folder name</source>
        <translation>Nombre de la carpeta</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
</context>
<context>
    <name>tessary::FileSettings</name>
    <message>
        <source>Copies from a phone go to</source>
        <translation>Las copias de un teléfono van a</translation>
    </message>
    <message>
        <source>A double click on a file</source>
        <translation>Un doble clic en un archivo</translation>
    </message>
    <message>
        <source>A new phone&apos;s files are shown</source>
        <translation>Los archivos de un teléfono nuevo se muestran</translation>
    </message>
    <message>
        <source>A folder that is asked for</source>
        <translation>una carpeta que se pregunta</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>opens it</source>
        <translation>lo abre</translation>
    </message>
    <message>
        <source>shows a preview</source>
        <translation>muestra una vista previa</translation>
    </message>
    <message>
        <source>copies it to this computer</source>
        <translation>lo copia a este ordenador</translation>
    </message>
    <message>
        <source>in a list</source>
        <translation>en una lista</translation>
    </message>
    <message>
        <source>as pictures</source>
        <translation>como imágenes</translation>
    </message>
    <message>
        <source>Always the same folder</source>
        <translation>siempre la misma carpeta</translation>
    </message>
    <message>
        <source>Turbo mode is used</source>
        <translation>El modo turbo se usa</translation>
    </message>
    <message>
        <source>with every phone that allows it</source>
        <translation>con todos los teléfonos que lo permiten</translation>
    </message>
    <message>
        <source>only where it was chosen</source>
        <translation>solo donde se eligió</translation>
    </message>
</context>
<context>
    <name>tessary::FileViews</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::FolderChooser</name>
    <message>
        <source>New Folder…</source>
        <translation>Nueva carpeta…</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Almacenamiento</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Carpeta superior</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Carpetas</translation>
    </message>
    <message>
        <source>reading…</source>
        <translation>leyendo…</translation>
    </message>
    <message>
        <source>No folders in here.</source>
        <translation>Aquí no hay carpetas.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Nueva carpeta</translation>
    </message>
    <message>
        <source>Name of the new folder:</source>
        <translation>Nombre de la nueva carpeta:</translation>
    </message>
</context>
<context>
    <name>tessary::FolderNotice</name>
    <message>
        <source>The phone is gone</source>
        <translation>El teléfono ya no está</translation>
    </message>
    <message>
        <source>Plug the phone in again and unlock it.</source>
        <translation>Vuelve a conectar el teléfono y desbloquéalo.</translation>
    </message>
    <message>
        <source>Plug it in again, unlock it and choose File transfer on it.</source>
        <translation>Vuelve a conectarlo, desbloquéalo y elige en él «Transferencia de archivos».</translation>
    </message>
    <message>
        <source>Connection Failed</source>
        <translation>Error de conexión</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Folder Not Found</source>
        <translation>Carpeta no encontrada</translation>
    </message>
    <message>
        <source>This folder could not be found on the device. It may have been deleted or moved. Would you like to remove it from your Favorites?</source>
        <translation>No se encontró esta carpeta en el dispositivo. Puede que se haya eliminado o movido. ¿Quieres quitarla de tus favoritos?</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conservar</translation>
    </message>
    <message>
        <source>It may have been deleted or moved on the phone.</source>
        <translation>Puede que se haya eliminado o movido en el teléfono.</translation>
    </message>
    <message>
        <source>Parent Folder</source>
        <translation>Carpeta superior</translation>
    </message>
    <message>
        <source>Loading directory contents…</source>
        <translation>Cargando el contenido de la carpeta…</translation>
    </message>
    <message>
        <source>Loading device storage…</source>
        <translation>Cargando el almacenamiento del dispositivo…</translation>
    </message>
    <message>
        <source>No Matching Files</source>
        <translation>Ningún archivo coincide</translation>
    </message>
    <message>
        <source>Nothing here has “%1” in its name.</source>
        <translation>Nada aquí contiene «%1» en el nombre.</translation>
    </message>
    <message>
        <source>Clear the Filter</source>
        <translation>Borrar el filtro</translation>
    </message>
    <message>
        <source>Only hidden files in here</source>
        <translation>Aquí solo hay archivos ocultos</translation>
    </message>
    <message>
        <source>Their names begin with a dot.</source>
        <translation>Sus nombres empiezan por un punto.</translation>
    </message>
    <message>
        <source>Show Hidden Files</source>
        <translation>Mostrar los archivos ocultos</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Esta carpeta está vacía</translation>
    </message>
    <message>
        <source>Drop files here to copy them to the phone.</source>
        <translation>Suelta archivos aquí para copiarlos al teléfono.</translation>
    </message>
    <message>
        <source>Searching for “%1”…</source>
        <translation>Buscando «%1»…</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>No se encontró nada</translation>
    </message>
    <message>
        <source>Nothing below this folder has “%1” in its name.</source>
        <translation>Nada dentro de esta carpeta tiene «%1» en el nombre.</translation>
    </message>
    <message>
        <source>Show the Folder</source>
        <translation>Mostrar la carpeta</translation>
    </message>
    <message>
        <source>Drop files here to copy them into it.</source>
        <translation>Suelta archivos aquí para copiarlos en la carpeta.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>No se pudo leer %Ln entrada.</numerusform>
            <numerusform>No se pudieron leer %Ln entradas.</numerusform>
        </translation>
    </message>
    <message>
        <source>Files are being copied into this folder…</source>
        <translation>Se están copiando archivos a esta carpeta…</translation>
    </message>
    <message>
        <source>They are shown once the copy has ended.</source>
        <translation>Aparecerán en cuanto termine la copia.</translation>
    </message>
</context>
<context>
    <name>tessary::GeneralNotices</name>
    <message>
        <source>Your settings could not be read. Tessary goes on with its own.</source>
        <translation>No se pudieron leer tus ajustes. Tessary sigue con los suyos.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>El archivo está dañado: %1</translation>
    </message>
    <message>
        <source>The damaged file was kept: %1</source>
        <translation>El archivo dañado se ha conservado: %1</translation>
    </message>
    <message>
        <source>Your settings could not be stored: %1</source>
        <translation>No se pudieron guardar tus ajustes: %1</translation>
    </message>
    <message>
        <source>They hold until Tessary ends, and are tried again with each change.</source>
        <translation>Valen hasta que Tessary se cierre; se intentará de nuevo con cada cambio.</translation>
    </message>
    <message>
        <source>Another program on this computer opens phones, too.</source>
        <translation>Otro programa de este ordenador también abre teléfonos.</translation>
    </message>
    <message>
        <source>If a phone does not show its files here, have that program release it.</source>
        <translation>Si un teléfono no muestra aquí sus archivos, haz que ese programa lo libere.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar el teléfono</translation>
    </message>
    <message>
        <source>Show Report</source>
        <translation>Mostrar informe</translation>
    </message>
    <message>
        <source>Copying “%1” broke off.</source>
        <translation>La copia de «%1» se interrumpió.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln copies broke off.</source>
        <translation>
            <numerusform>Se interrumpió %Ln copia.</numerusform>
            <numerusform>Se interrumpieron %Ln copias.</numerusform>
        </translation>
    </message>
    <message>
        <source>The phone is back. What has arrived is not copied again.</source>
        <translation>El teléfono ha vuelto. Lo que ya llegó no se copia de nuevo.</translation>
    </message>
    <message>
        <source>Continue Copying</source>
        <translation>Continuar la copia</translation>
    </message>
    <message>
        <source>“%1” could not be opened in the file manager.</source>
        <translation>No se pudo abrir «%1» en el gestor de archivos.</translation>
    </message>
    <message>
        <source>This computer mounts nothing for its users. FUSE may not be installed.</source>
        <translation>Este ordenador no monta nada para sus usuarios. Puede que FUSE no esté instalado.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
</context>
<context>
    <name>tessary::HelpDialog</name>
    <message>
        <source>Plug the phone in and unlock it. On an Android phone choose “File transfer” in its USB notification; on an iPhone tap “Trust”.</source>
        <translation>Conecta el teléfono y desbloquéalo. En un teléfono Android elige «Transferencia de archivos» en su notificación de USB; en un iPhone toca «Confiar».</translation>
    </message>
    <message>
        <source>Drag files out of the window to copy them here, and into it to copy them to the phone.</source>
        <translation>Arrastra archivos fuera de la ventana para copiarlos aquí, y dentro de ella para copiarlos al teléfono.</translation>
    </message>
    <message>
        <source>F3 shows a folder of this computer beside the phone&apos;s: drag or paste from one to the other.</source>
        <translation>F3 muestra una carpeta de este ordenador junto a la del teléfono: arrastra o pega de una a otra.</translation>
    </message>
    <message>
        <source>“Import Photos…” fetches what is new on the camera, and “Sync” keeps a folder here and one on the phone the same.</source>
        <translation>«Importar fotos…» trae lo nuevo de la cámara, y «Sincronización» mantiene iguales una carpeta de aquí y una del teléfono.</translation>
    </message>
    <message>
        <source>While files are dragged, Ctrl copies, Shift moves and Alt asks.</source>
        <translation>Al arrastrar, Ctrl copia, Mayús mueve y Alt pregunta.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Primeros pasos</translation>
    </message>
</context>
<context>
    <name>tessary::ImportView</name>
    <message>
        <source>Also What Was Imported Before</source>
        <translation>También lo ya importado</translation>
    </message>
    <message>
        <source>A Folder for Each Day</source>
        <translation>Una carpeta por día</translation>
    </message>
    <message>
        <source>Photos &amp; Videos</source>
        <translation>Fotos y vídeos</translation>
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
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Looking for photos and videos…</source>
        <translation>Buscando fotos y vídeos…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln archivo encontrado</numerusform>
            <numerusform>%Ln archivos encontrados</numerusform>
        </translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Deleting from the phone…</source>
        <translation>Eliminando del teléfono…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries could not be read.</source>
        <translation>
            <numerusform>No se pudo leer %Ln entrada.</numerusform>
            <numerusform>No se pudieron leer %Ln entradas.</numerusform>
        </translation>
    </message>
    <message>
        <source>All of this phone was imported before.</source>
        <translation>Todo lo de este teléfono ya se importó.</translation>
    </message>
    <message>
        <source>No new photos</source>
        <translation>No hay fotos nuevas</translation>
    </message>
    <message>
        <source>No photos or videos</source>
        <translation>No hay fotos ni vídeos</translation>
    </message>
    <message numerus="yes">
        <source>%Ln chosen</source>
        <translation>
            <numerusform>%Ln elegido</numerusform>
            <numerusform>%Ln elegidos</numerusform>
        </translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>%1 de %2 archivos</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Importando…</translation>
    </message>
    <message>
        <source>They were compared with those on the phone, and lie in %1.</source>
        <translation>Se compararon con los del teléfono y están en %1.</translation>
    </message>
    <message>
        <source>Not everything arrived: the list of copies below says why.</source>
        <translation>No llegó todo: la lista de copias de abajo dice por qué.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos imported</source>
        <translation>
            <numerusform>%Ln foto o vídeo importado</numerusform>
            <numerusform>%Ln fotos y vídeos importados</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Delete from the Phone…</source>
        <translation>Eliminar del teléfono…</translation>
    </message>
    <message>
        <source>Import More</source>
        <translation>Importar más</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files stayed, the first because: %1</source>
        <translation>
            <numerusform>Se quedó %Ln archivo, porque: %1</numerusform>
            <numerusform>Se quedaron %Ln archivos; el primero, porque: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photos and videos deleted from the phone</source>
        <translation>
            <numerusform>%Ln foto o vídeo eliminado del teléfono</numerusform>
            <numerusform>%Ln fotos y vídeos eliminados del teléfono</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %Ln photos and videos from the phone?</source>
        <translation>
            <numerusform>¿Eliminar %Ln foto o vídeo del teléfono?</numerusform>
            <numerusform>¿Eliminar %Ln fotos y vídeos del teléfono?</numerusform>
        </translation>
    </message>
    <message>
        <source>They go at once, and not to the phone&apos;s album “Recently Deleted”.</source>
        <translation>Desaparecen al momento y no pasan al álbum «Eliminado» del teléfono.</translation>
    </message>
    <message>
        <source>Each copy on this computer is read once more before. This cannot be undone.</source>
        <translation>Antes se lee una vez más cada copia de este ordenador. Esto no se puede deshacer.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
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
        <translation>Tessary: teléfonos virtuales</translation>
    </message>
    <message>
        <source>Quit Tessary</source>
        <translation>Salir de Tessary</translation>
    </message>
    <message>
        <source>Files are still being copied.</source>
        <translation>Todavía se están copiando archivos.</translation>
    </message>
    <message>
        <source>A sync is still running.</source>
        <translation>Todavía hay una sincronización en curso.</translation>
    </message>
    <message>
        <source>Quitting cancels this. What has arrived whole stays.</source>
        <translation>Al salir se cancela. Lo que ha llegado entero se conserva.</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importar fotos…</translation>
    </message>
    <message>
        <source>Files on the phone are still being changed.</source>
        <translation>Todavía se están cambiando archivos en el teléfono.</translation>
    </message>
    <message>
        <source>Quitting stops this. What is done stays done.</source>
        <translation>Al salir se detiene. Lo hecho, hecho queda.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Closing stops this. What is done stays done.</source>
        <translation>Al cerrar, esto se detiene. Lo hecho, hecho queda.</translation>
    </message>
</context>
<context>
    <name>tessary::ModeSwitch</name>
    <message>
        <source>Works with every phone, nothing to set up.</source>
        <translation>Funciona con todos los teléfonos, sin configurar nada.</translation>
    </message>
    <message>
        <source>Faster and sees more. Needs USB debugging on the phone.</source>
        <translation>Más rápido y ve más. Requiere depuración USB en el teléfono.</translation>
    </message>
</context>
<context>
    <name>tessary::OpenProgress</name>
    <message>
        <source>Fetching “%1” to open it…</source>
        <translation>Obteniendo «%1» para abrirlo…</translation>
    </message>
    <message numerus="yes">
        <source>Fetching %Ln files to open them…</source>
        <translation>
            <numerusform>Obteniendo %Ln archivo para abrirlo…</numerusform>
            <numerusform>Obteniendo %Ln archivos para abrirlos…</numerusform>
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
        <translation>Este ordenador junto al teléfono</translation>
    </message>
</context>
<context>
    <name>tessary::PhonePage</name>
    <message>
        <source>Phone</source>
        <translation>Teléfono</translation>
    </message>
    <message>
        <source>Import Photos…</source>
        <translation>Importar fotos…</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar ahora</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Almacenamiento</translation>
    </message>
    <message>
        <source>Looking at what fills it…</source>
        <translation>Averiguando qué lo ocupa…</translation>
    </message>
    <message>
        <source>Folders Kept in Step</source>
        <translation>Carpetas sincronizadas</translation>
    </message>
    <message>
        <source>Wireless</source>
        <translation>Inalámbrico</translation>
    </message>
    <message>
        <source>Browse Photos</source>
        <translation>Explorar fotos</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Explorar archivos</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar el teléfono</translation>
    </message>
    <message>
        <source>This phone is locked</source>
        <translation>Este teléfono está bloqueado</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Mostrará sus archivos cuando lo desbloquees y elijas «Transferencia de archivos» en su notificación USB. Esta ventana se actualiza sola.</translation>
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
        <translation>Este teléfono está bloqueado</translation>
    </message>
    <message>
        <source>It shows its files once you unlock it and choose “File transfer” in its USB notification. This window follows by itself.</source>
        <translation>Mostrará sus archivos cuando lo desbloquees y elijas «Transferencia de archivos» en su notificación USB. Esta ventana se actualiza sola.</translation>
    </message>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar el teléfono</translation>
    </message>
</context>
<context>
    <name>tessary::PlaceListModel</name>
    <message>
        <source>Camera &amp; Photos</source>
        <translation>Cámara y fotos</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Descargas</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Movies &amp; Videos</source>
        <translation>Películas y vídeos</translation>
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
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Página anterior</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Página siguiente</translation>
    </message>
    <message>
        <source>“%1” is too large for a preview. Copy it to this computer first.</source>
        <translation>«%1» es demasiado grande para una vista previa. Cópialo antes a este ordenador.</translation>
    </message>
    <message>
        <source>It cannot be shown: it is damaged, too large or protected.</source>
        <translation>No se puede mostrar: está dañado, es demasiado grande o está protegido.</translation>
    </message>
    <message>
        <source>only its beginning is shown</source>
        <translation>solo se muestra el principio</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Página %1 de %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
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
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Contenido</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Fecha de modificación</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Ruta</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propiedades</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>Various kinds</source>
        <translation>Varios tipos</translation>
    </message>
    <message>
        <source>Stop Counting</source>
        <translation>Detener el recuento</translation>
    </message>
    <message>
        <source>Counting the content</source>
        <translation>Contando el contenido</translation>
    </message>
    <message>
        <source>Files: %1, folders: %2</source>
        <translation>Archivos: %1, carpetas: %2</translation>
    </message>
    <message>
        <source>The count was stopped: there may be more.</source>
        <translation>El recuento se detuvo: puede haber más.</translation>
    </message>
    <message>
        <source>Folders that could not be read: %1</source>
        <translation>Carpetas que no se pudieron leer: %1</translation>
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
        <translation>General</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Sincronización</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Actualizaciones</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Idioma del sistema</translation>
    </message>
    <message>
        <source>Choose your preferred display language. Changes apply immediately.</source>
        <translation>Elige el idioma de la interfaz. Los cambios se aplican al instante.</translation>
    </message>
    <message>
        <source>Open the window as it was left</source>
        <translation>Abrir la ventana como se dejó</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Buscar actualizaciones automáticamente</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Versión</translation>
    </message>
    <message>
        <source>Browse phones and copy files to and from them.</source>
        <translation>Explora teléfonos y copia archivos en ambos sentidos.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Sitio web</translation>
    </message>
    <message>
        <source>Compare each copy with its original</source>
        <translation>Comparar cada copia con su original</translation>
    </message>
    <message>
        <source>A copy counts only once it was read again and found to be the same. This takes longer.</source>
        <translation>Una copia solo cuenta cuando se ha vuelto a leer y es igual. Esto tarda más.</translation>
    </message>
</context>
<context>
    <name>tessary::Sidebar</name>
    <message>
        <source>Wireless Devices…</source>
        <translation>Dispositivos inalámbricos…</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Quick Shortcuts</source>
        <translation>Accesos rápidos</translation>
    </message>
    <message>
        <source>Storage Volumes</source>
        <translation>Almacenamiento</translation>
    </message>
    <message>
        <source>Connected Devices</source>
        <translation>Dispositivos conectados</translation>
    </message>
    <message>
        <source>No Devices</source>
        <translation>Sin dispositivos</translation>
    </message>
    <message>
        <source>Connect an iOS or Android device via USB</source>
        <translation>Conecta un dispositivo iOS o Android por USB</translation>
    </message>
    <message>
        <source>Drop a folder here to keep it at hand.</source>
        <translation>Suelta aquí una carpeta para tenerla a mano.</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Remove from File Manager</source>
        <translation>Quitar del gestor de archivos</translation>
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
        <translation>Ascendente</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Descendente</translation>
    </message>
</context>
<context>
    <name>tessary::StatusBanner</name>
    <message>
        <source>Close this message</source>
        <translation>Cerrar este mensaje</translation>
    </message>
</context>
<context>
    <name>tessary::SyncDialogs</name>
    <message>
        <source>Sync of %1</source>
        <translation>Sincronización de %1</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairDialog</name>
    <message>
        <source>A file deleted on one side is deleted on the other, after asking</source>
        <translation>Un archivo eliminado en un lado se elimina en el otro, tras preguntar</translation>
    </message>
    <message>
        <source>Remove files from where they came once they have arrived</source>
        <translation>Quitar los archivos de su origen cuando hayan llegado</translation>
    </message>
    <message>
        <source>Sync This Folder</source>
        <translation>Sincronizar esta carpeta</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Both ways</source>
        <translation>En ambos sentidos</translation>
    </message>
    <message>
        <source>Only to the phone</source>
        <translation>Solo al teléfono</translation>
    </message>
    <message>
        <source>Only to this computer</source>
        <translation>Solo a este ordenador</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Folder on the phone</source>
        <translation>Carpeta en el teléfono</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostrar lo que ocurrirá</translation>
    </message>
    <message>
        <source>Sync whenever this phone is plugged in</source>
        <translation>Sincronizar cada vez que se conecte este teléfono</translation>
    </message>
    <message>
        <source>Edit This Pair</source>
        <translation>Editar este par</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Se omite</translation>
    </message>
    <message>
        <source>One pattern a line, by the rules of .gitignore: *.tmp, /private/</source>
        <translation>Un patrón por línea, según las reglas de .gitignore: *.tmp, /private/</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairList</name>
    <message>
        <source>No folders are kept in step yet. Open a folder of the phone, then choose “Sync This Folder…”.</source>
        <translation>Todavía no se sincroniza ninguna carpeta. Abre una carpeta del teléfono y elige «Sincronizar esta carpeta…».</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPairRow</name>
    <message>
        <source>Queued</source>
        <translation>En cola</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar ahora</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Remove This Pair</source>
        <translation>Quitar este par</translation>
    </message>
    <message>
        <source>Stop keeping these folders in step?</source>
        <translation>¿Dejar de sincronizar estas carpetas?</translation>
    </message>
    <message>
        <source>No file is deleted on either side.</source>
        <translation>No se elimina ningún archivo en ningún lado.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>Not synced yet</source>
        <translation>Aún sin sincronizar</translation>
    </message>
    <message>
        <source>Show What Will Happen</source>
        <translation>Mostrar lo que ocurrirá</translation>
    </message>
    <message>
        <source>Reports…</source>
        <translation>Informes…</translation>
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
        <translation>Sincronización</translation>
    </message>
    <message>
        <source>Sync This Folder…</source>
        <translation>Sincronizar esta carpeta…</translation>
    </message>
    <message>
        <source>Sync All</source>
        <translation>Sincronizar todo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncPreviewDialog</name>
    <message>
        <source>Leave as it is</source>
        <translation>Dejar como está</translation>
    </message>
    <message>
        <source>What Will Happen</source>
        <translation>Lo que ocurrirá</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Acción</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Sincronizar ahora</translation>
    </message>
    <message>
        <source>Comparing the folders…</source>
        <translation>Comparando las carpetas…</translation>
    </message>
    <message>
        <source>The folders cannot be compared</source>
        <translation>No se pueden comparar las carpetas</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files are the same already</source>
        <translation>
            <numerusform>%Ln archivo ya es igual</numerusform>
            <numerusform>%Ln archivos ya son iguales</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files to go through, %1 to copy</source>
        <translation>
            <numerusform>%Ln archivo por revisar, %1 por copiar</numerusform>
            <numerusform>%Ln archivos por revisar, %1 por copiar</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep this computer&apos;s</source>
        <translation>Conservar la de este ordenador</translation>
    </message>
    <message>
        <source>Keep the phone&apos;s</source>
        <translation>Conservar la del teléfono</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copiar todo de nuevo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncQuestionDialog</name>
    <message>
        <source>On this computer</source>
        <translation>En este ordenador</translation>
    </message>
    <message>
        <source>On the phone</source>
        <translation>En el teléfono</translation>
    </message>
    <message>
        <source>Files to delete</source>
        <translation>Archivos por eliminar</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Dónde</translation>
    </message>
    <message>
        <source>edited since the last sync</source>
        <translation>editado desde la última sincronización</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Conservar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Create Again</source>
        <translation>Crear de nuevo</translation>
    </message>
    <message>
        <source>Delete Files?</source>
        <translation>¿Eliminar archivos?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files were deleted on one side. Delete them on the other, too?</source>
        <translation>
            <numerusform>%Ln archivo se eliminó en un lado. ¿Eliminarlo también en el otro?</numerusform>
            <numerusform>%Ln archivos se eliminaron en un lado. ¿Eliminarlos también en el otro?</numerusform>
        </translation>
    </message>
    <message>
        <source>What you keep is copied back.</source>
        <translation>Lo que conserves se vuelve a copiar.</translation>
    </message>
    <message>
        <source>Folder Missing</source>
        <translation>Falta la carpeta</translation>
    </message>
    <message>
        <source>The folder on this computer is gone</source>
        <translation>La carpeta de este ordenador ya no está</translation>
    </message>
    <message>
        <source>Stop, Change Nothing</source>
        <translation>Detener sin cambiar nada</translation>
    </message>
    <message>
        <source>Folder Empty</source>
        <translation>Carpeta vacía</translation>
    </message>
    <message>
        <source>Is everything to be copied there again?</source>
        <translation>¿Copiar todo allí de nuevo?</translation>
    </message>
    <message>
        <source>Copy Everything Again</source>
        <translation>Copiar todo de nuevo</translation>
    </message>
</context>
<context>
    <name>tessary::SyncReportDialog</name>
    <message>
        <source>Reports</source>
        <translation>Informes</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Ejecuciones</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>There is no report yet.</source>
        <translation>Todavía no hay ningún informe.</translation>
    </message>
    <message>
        <source>What was done</source>
        <translation>Lo que se hizo</translation>
    </message>
</context>
<context>
    <name>tessary::TableColumns</name>
    <message>
        <source>Columns</source>
        <translation>Columnas</translation>
    </message>
</context>
<context>
    <name>tessary::Tabs</name>
    <message>
        <source>Tabs</source>
        <translation>Pestañas</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>Cerrar pestaña</translation>
    </message>
</context>
<context>
    <name>tessary::TransferListModel</name>
    <message>
        <source>Finishing: the phone is still storing the file</source>
        <translation>Finalizando: el teléfono aún está guardando el archivo</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>quedan %1</translation>
    </message>
    <message>
        <source>Tessary ended while this was being copied.</source>
        <translation>Tessary se cerró mientras se copiaba esto.</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %Ln more</source>
        <translation>
            <numerusform>%1 y %Ln más</numerusform>
            <numerusform>%1 y %Ln más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1/%Ln files</source>
        <translation>
            <numerusform>%1/%Ln archivo</numerusform>
            <numerusform>%1/%Ln archivos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessary::TransferNotice</name>
    <message>
        <source>“%1” is copied.</source>
        <translation>«%1» se ha copiado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items are copied.</source>
        <translation>
            <numerusform>Se ha copiado %Ln elemento.</numerusform>
            <numerusform>Se han copiado %Ln elementos.</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not copied.</source>
        <translation>«%1» no se ha copiado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of %1 items were not copied.</source>
        <translation>
            <numerusform>%Ln de %1 elementos no se ha copiado.</numerusform>
            <numerusform>%Ln de %1 elementos no se han copiado.</numerusform>
        </translation>
    </message>
    <message>
        <source>Copying has finished</source>
        <translation>La copia ha terminado</translation>
    </message>
    <message>
        <source>Copying went wrong</source>
        <translation>La copia ha tenido problemas</translation>
    </message>
</context>
<context>
    <name>tessary::TransferPanel</name>
    <message>
        <source>All transfers have ended</source>
        <translation>Todas las transferencias han terminado</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>quedan %1</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>Transferencias</translation>
    </message>
    <message>
        <source>Cancel All</source>
        <translation>Cancelar todo</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>Quitar finalizados</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Reanudar</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>History…</source>
        <translation>Historial…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
</context>
<context>
    <name>tessary::TranslatedFileModel</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Fecha de modificación</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
</context>
<context>
    <name>tessary::UpdateAlerts</name>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>Update Check Failed</source>
        <translation>Error al buscar actualizaciones</translation>
    </message>
    <message>
        <source>Tessary v%1 is currently the newest version.</source>
        <translation>Tessary v%1 es actualmente la versión más reciente.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>A new version of Tessary is available.</source>
        <translation>Hay una nueva versión de Tessary disponible.</translation>
    </message>
    <message>
        <source>Tessary %1 is available</source>
        <translation>Tessary %1 está disponible</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Omitir esta versión</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Más tarde</translation>
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
        <translation>Aplicaciones</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>En uso</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Otros</translation>
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
        <translation>Conecta un teléfono</translation>
    </message>
    <message>
        <source>Try It with a Virtual Phone</source>
        <translation>Probar con un teléfono virtual</translation>
    </message>
    <message>
        <source>Starts Tessary again with two virtual phones, which hold sample files</source>
        <translation>Reinicia Tessary con dos teléfonos virtuales que contienen archivos de ejemplo</translation>
    </message>
    <message>
        <source>Plug it in</source>
        <translation>Enchúfalo</translation>
    </message>
    <message>
        <source>Use a cable that carries data: some only charge.</source>
        <translation>Usa un cable de datos: algunos solo cargan.</translation>
    </message>
    <message>
        <source>Unlock it</source>
        <translation>Desbloquéalo</translation>
    </message>
    <message>
        <source>A locked phone shows nothing of its storage.</source>
        <translation>Un teléfono bloqueado no muestra nada de su almacenamiento.</translation>
    </message>
    <message>
        <source>Allow it on the phone</source>
        <translation>Permite el acceso en el teléfono</translation>
    </message>
    <message>
        <source>Android: tap the notification “Charging this device via USB” and choose “File transfer”. iPhone: tap “Trust”.</source>
        <translation>Android: toca la notificación «Cargando este dispositivo por USB» y elige «Transferencia de archivos». iPhone: toca «Confiar».</translation>
    </message>
</context>
<context>
    <name>tessary::WindowBanner</name>
    <message>
        <source>Release the Phone</source>
        <translation>Liberar el teléfono</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
</context>
<context>
    <name>tessary::WirelessDialog</name>
    <message>
        <source>Pairing…</source>
        <translation>Vinculando…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>Paired</source>
        <translation>Vinculado</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Conectado</translation>
    </message>
    <message>
        <source>Waiting to be paired</source>
        <translation>A la espera de vincularse</translation>
    </message>
    <message>
        <source>Ready to connect</source>
        <translation>Listo para conectarse</translation>
    </message>
    <message>
        <source>Wireless Devices</source>
        <translation>Dispositivos inalámbricos</translation>
    </message>
    <message>
        <source>Phones on this network on which wireless debugging is switched on.</source>
        <translation>Teléfonos de esta red que tienen activada la depuración inalámbrica.</translation>
    </message>
    <message>
        <source>Looking for phones…</source>
        <translation>Buscando teléfonos…</translation>
    </message>
    <message>
        <source>Search Again</source>
        <translation>Buscar de nuevo</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>This computer cannot look for phones on the network: the service for it (avahi-daemon) does not run.</source>
        <translation>Este ordenador no puede buscar teléfonos en la red: el servicio necesario (avahi-daemon) no está en marcha.</translation>
    </message>
    <message>
        <source>On the phone, switch on wireless debugging in the developer options. It must be on the same network as this computer.</source>
        <translation>En el teléfono, activa la depuración inalámbrica en las opciones para desarrolladores. Debe estar en la misma red que este ordenador.</translation>
    </message>
    <message>
        <source>A phone that waits to be paired shows a code of six digits.</source>
        <translation>Un teléfono a la espera de vincularse muestra un código de seis dígitos.</translation>
    </message>
    <message>
        <source>Pair…</source>
        <translation>Vincular…</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Conectar</translation>
    </message>
    <message>
        <source>The six digits that the phone shows:</source>
        <translation>Los seis dígitos que muestra el teléfono:</translation>
    </message>
    <message>
        <source>Pair</source>
        <translation>Vincular</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
