#include "base/threads/ThreadName.h"

#include <pthread.h>

#include <string>

namespace tessary {

void nameCurrentThread(const char* name) {
    constexpr std::size_t longest = 15;
    const std::string shortened = std::string(name).substr(0, longest);
    pthread_setname_np(pthread_self(), shortened.c_str());
}

} // namespace tessary
