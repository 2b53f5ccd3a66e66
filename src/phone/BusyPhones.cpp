#include "phone/BusyPhones.h"

namespace tessary {

BusyPhones& BusyPhones::shared() {
    static BusyPhones& phones = *new BusyPhones;
    return phones;
}

BusyPhones::Mark::Mark(BusyPhones& phones, const QString& udid) : phones_(phones), udid_(udid) {
    const std::scoped_lock lock(phones_.mutex_);
    ++phones_.marks_[udid_];
}

BusyPhones::Mark::~Mark() {
    const std::scoped_lock lock(phones_.mutex_);
    if (--phones_.marks_[udid_] == 0)
        phones_.marks_.remove(udid_);
}

bool BusyPhones::isBusy(const QString& udid) const {
    const std::scoped_lock lock(mutex_);
    return marks_.contains(udid);
}

} // namespace tessary
