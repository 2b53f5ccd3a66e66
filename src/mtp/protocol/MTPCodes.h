#pragma once

#include <cstdint>

namespace tessary {

/// What a container carries.
enum class MTPContainerType : std::uint16_t {
    undefined = 0x0000,
    command = 0x0001,
    data = 0x0002,
    response = 0x0003,
    event = 0x0004,
};

/// Operations in use: PTP ones, those of object properties and Android's extensions.
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
    getDevicePropDesc = 0x1014,
    getDevicePropValue = 0x1015,
    moveObject = 0x1019,
    getPartialObject = 0x101B,
    getObjectPropsSupported = 0x9801,
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
    storeFull = 0x200C,
    objectWriteProtected = 0x200D,
    storeReadOnly = 0x200E,
    accessDenied = 0x200F,
    noThumbnailPresent = 0x2010,
    partialDeletion = 0x2012,
    storeNotAvailable = 0x2013,
    specificationByFormatUnsupported = 0x2014,
    noValidObjectInfo = 0x2015,
    deviceBusy = 0x2019,
    invalidParentObject = 0x201A,
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
    cancelTransaction = 0x4001,
    objectAdded = 0x4002,
    objectRemoved = 0x4003,
    storeAdded = 0x4004,
    storeRemoved = 0x4005,
    devicePropChanged = 0x4006,
    objectInfoChanged = 0x4007,
    deviceReset = 0x400B,
};

/// Formats of objects; every other one is a file's.
enum class MTPObjectFormat : std::uint16_t {
    undefined = 0x3000,
    associationFolder = 0x3001,
};

/// Properties of objects.
enum class MTPObjectProperty : std::uint16_t {
    storageID = 0xDC01,
    objectFormat = 0xDC02,
    protectionStatus = 0xDC03,
    objectSize = 0xDC04,
    objectFileName = 0xDC07,
    dateModified = 0xDC09,
    parentObject = 0xDC0B,
    persistentUniqueID = 0xDC41,
    name = 0xDC44,
};

/// The device property "battery level", in percent.
inline constexpr std::uint32_t mtpBatteryLevelProperty = 0x5001;

/// The parent handle that stands for the root of a storage.
inline constexpr std::uint32_t mtpRootHandle = 0xFFFFFFFF;

} // namespace tessary
