#pragma once

#include <QLatin1StringView>

#include <cstdint>
#include <optional>

namespace tessary {

/// What a container carries.
enum class MTPContainerType : std::uint16_t {
    undefined = 0x0000,
    command = 0x0001,
    data = 0x0002,
    response = 0x0003,
    event = 0x0004,
};

/// Operations: the PTP ones, the object properties and Android's extensions.
enum class MTPOperationCode : std::uint16_t {
    getDeviceInfo = 0x1001,
    openSession = 0x1002,
    closeSession = 0x1003,
    getStorageIDs = 0x1004,
    getStorageInfo = 0x1005,
    getNumObjects = 0x1006,
    getObjectHandles = 0x1007,
    getObjectInfo = 0x1008,
    getObject = 0x1009,
    getThumb = 0x100A,
    deleteObject = 0x100B,
    sendObjectInfo = 0x100C,
    sendObject = 0x100D,
    initiateCapture = 0x100E,
    formatStore = 0x100F,
    resetDevice = 0x1010,
    selfTest = 0x1011,
    setObjectProtection = 0x1012,
    powerDown = 0x1013,
    getDevicePropDesc = 0x1014,
    getDevicePropValue = 0x1015,
    setDevicePropValue = 0x1016,
    resetDevicePropValue = 0x1017,
    terminateOpenCapture = 0x1018,
    moveObject = 0x1019,
    copyObject = 0x101A,
    getPartialObject = 0x101B,
    getObjectPropsSupported = 0x9801,
    getObjectPropDesc = 0x9802,
    getObjectPropValue = 0x9803,
    setObjectPropValue = 0x9804,
    getObjectPropList = 0x9805,
    androidGetPartialObject64 = 0x95C1,
    androidSendPartialObject = 0x95C2,
    androidTruncateObject = 0x95C3,
    androidBeginEditObject = 0x95C4,
    androidEndEditObject = 0x95C5,
};

/// What a device answers an operation with.
enum class MTPResponseCode : std::uint16_t {
    ok = 0x2001,
    generalError = 0x2002,
    sessionNotOpen = 0x2003,
    invalidTransactionID = 0x2004,
    operationNotSupported = 0x2005,
    parameterNotSupported = 0x2006,
    incompleteTransfer = 0x2007,
    invalidStorageID = 0x2008,
    invalidObjectHandle = 0x2009,
    devicePropNotSupported = 0x200A,
    invalidObjectFormatCode = 0x200B,
    storeFull = 0x200C,
    objectWriteProtected = 0x200D,
    storeReadOnly = 0x200E,
    accessDenied = 0x200F,
    noThumbnailPresent = 0x2010,
    selfTestFailed = 0x2011,
    partialDeletion = 0x2012,
    storeNotAvailable = 0x2013,
    specificationByFormatUnsupported = 0x2014,
    noValidObjectInfo = 0x2015,
    invalidCodeFormat = 0x2016,
    unknownVendorCode = 0x2017,
    captureAlreadyTerminated = 0x2018,
    deviceBusy = 0x2019,
    invalidParentObject = 0x201A,
    invalidDevicePropFormat = 0x201B,
    invalidDevicePropValue = 0x201C,
    invalidParameter = 0x201D,
    sessionAlreadyOpen = 0x201E,
    transactionCancelled = 0x201F,
    destinationUnsupported = 0x2020,
};

/// Responses of the object property operations.
inline constexpr std::uint16_t mtpInvalidObjectPropCode = 0xA801;
inline constexpr std::uint16_t mtpObjectTooLarge = 0xA809;
inline constexpr std::uint16_t mtpObjectPropNotSupported = 0xA80A;

/// Events of the interrupt pipe.
enum class MTPEventCode : std::uint16_t {
    undefined = 0x4000,
    cancelTransaction = 0x4001,
    objectAdded = 0x4002,
    objectRemoved = 0x4003,
    storeAdded = 0x4004,
    storeRemoved = 0x4005,
    devicePropChanged = 0x4006,
    objectInfoChanged = 0x4007,
    deviceInfoChanged = 0x4008,
    requestObjectTransfer = 0x4009,
    storeFull = 0x400A,
    deviceReset = 0x400B,
    storageInfoChanged = 0x400C,
    captureComplete = 0x400D,
    unreportStatus = 0x400E,
};

/// Formats of objects.
enum class MTPObjectFormat : std::uint16_t {
    undefined = 0x3000,
    associationFolder = 0x3001,
    script = 0x3002,
    executable = 0x3003,
    text = 0x3004,
    html = 0x3005,
    dcf = 0x3006,
    aiff = 0x3007,
    wav = 0x3008,
    mp3 = 0x3009,
    avi = 0x300A,
    mpeg = 0x300B,
    asf = 0x300C,
    exifJpeg = 0x3801,
    tiffEp = 0x3802,
    bmp = 0x3804,
    gif = 0x3807,
    jfif = 0x3808,
    png = 0x380B,
    tiff = 0x380D,
    mp4 = 0xB982,
    mkv = 0xB984,
    flac = 0xB906,
    aac = 0xB903,
    genericDocument = 0xBA00,
};

/// Properties of objects.
enum class MTPObjectProperty : std::uint16_t {
    storageID = 0xDC01,
    objectFormat = 0xDC02,
    protectionStatus = 0xDC03,
    objectSize = 0xDC04,
    associationType = 0xDC05,
    associationDesc = 0xDC06,
    objectFileName = 0xDC07,
    dateCreated = 0xDC08,
    dateModified = 0xDC09,
    parentObject = 0xDC0B,
    persistentUniqueID = 0xDC41,
    name = 0xDC44,
};

/// The device property "battery level", in percent.
inline constexpr std::uint32_t mtpBatteryLevelProperty = 0x5001;

/// The parent handle that stands for the root of a storage.
inline constexpr std::uint32_t mtpRootHandle = 0xFFFFFFFF;

// Each gives the case of a raw code, or no value for a code that is not in its table.
[[nodiscard]] std::optional<MTPContainerType> mtpContainerTypeFromRaw(std::uint16_t raw);
[[nodiscard]] std::optional<MTPObjectFormat> mtpObjectFormatFromRaw(std::uint16_t raw);
[[nodiscard]] std::optional<MTPObjectProperty> mtpObjectPropertyFromRaw(std::uint16_t raw);

/// The case's name as it is written above.
[[nodiscard]] QLatin1StringView mtpContainerTypeName(MTPContainerType type);

} // namespace tessary
