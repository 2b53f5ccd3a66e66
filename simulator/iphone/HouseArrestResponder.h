#pragma once

#include "simulator/iphone/VirtualIPhone.h"

namespace tessary {

/// House arrest on a virtual iPhone: opens an app's container to AFC. One connection takes one
/// command; after a refusal it ends.
class HouseArrestResponder {
public:
    static inline const QString service = QStringLiteral("com.apple.mobile.house_arrest");

    HouseArrestResponder(VirtualIPhone& phone, PhoneStream& stream);

    /// Until one side ends it, the AFC that follows included.
    void run();

private:
    VirtualIPhone& phone_;
    PhoneStream& stream_;
};

} // namespace tessary
