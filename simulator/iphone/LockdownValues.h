#pragma once

#include "simulator/iphone/VirtualIPhone.h"

namespace tessary {

/// The values that lockdown tells of a virtual iPhone.
class LockdownValues {
public:
    explicit LockdownValues(VirtualIPhone& phone) : phone_(phone) {}

    /// What is told without a session. An empty domain is the general one; an empty key all of it.
    [[nodiscard]] static bool isPublic(const QString& domain, const QString& key);
    /// A domain's values; of the general one without a session only the public ones. No value for
    /// a domain that the phone does not tell.
    [[nodiscard]] std::optional<QVariantMap> domain(const QString& name, bool inSession) const;

private:
    [[nodiscard]] QVariantMap general() const;
    [[nodiscard]] QVariantMap diskUsage() const;
    [[nodiscard]] QVariantMap battery() const;

    VirtualIPhone& phone_;
};

} // namespace tessary
