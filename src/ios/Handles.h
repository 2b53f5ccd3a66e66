#pragma once

#include "base/values/FreeWith.h"

#include <libimobiledevice/afc.h>
#include <libimobiledevice/house_arrest.h>
#include <libimobiledevice/installation_proxy.h>
#include <libimobiledevice/libimobiledevice.h>
#include <libimobiledevice/lockdown.h>
#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <type_traits>

namespace tessary {

// The library's handles, each with the library's own free function.

template <typename Handle, auto free>
using LibraryHandle = std::unique_ptr<std::remove_pointer_t<Handle>, FreeWith<free>>;

using DeviceHandle = LibraryHandle<idevice_t, idevice_free>;
using LockdownHandle = LibraryHandle<lockdownd_client_t, lockdownd_client_free>;
using LockdownService =
    LibraryHandle<lockdownd_service_descriptor_t, lockdownd_service_descriptor_free>;
using HouseArrestHandle = LibraryHandle<house_arrest_client_t, house_arrest_client_free>;
using AFCHandle = LibraryHandle<afc_client_t, afc_client_free>;
using InstallationProxyHandle = LibraryHandle<instproxy_client_t, instproxy_client_free>;
/// A list of texts that ends with a null pointer.
using AFCTexts = LibraryHandle<char**, afc_dictionary_free>;
using PlistHandle = std::unique_ptr<void, FreeWith<plist_free>>;
using LibraryText = LibraryHandle<char*, std::free>;

} // namespace tessary
