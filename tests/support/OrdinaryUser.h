#pragma once

#include <unistd.h>

#include <stdexcept>

namespace tessary {

/// While it lives, a process of the superuser has the rights of an ordinary user, for whom files
/// can be unreadable. Does nothing for anybody else.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (isRoot_ && setresuid(nobody, nobody, 0) != 0)
            throw std::runtime_error("cannot become an ordinary user");
    }
    ~OrdinaryUser() {
        if (isRoot_ && setresuid(0, 0, 0) != 0)
            _exit(1);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    const bool isRoot_ = geteuid() == 0;
};

} // namespace tessary
