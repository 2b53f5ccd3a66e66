#include "base/threads/ThreadName.h"

#include <pthread.h>

#include <string>

namespace tessary {

void nameCurrentThread(const char* name) {
    constexpr std::size_t longest = 15;
    const std::string shortened = std::string(name).substr(0, longest);
#ifdef __APPLE__
    pthread_setname_np(shortened.c_str());
#else
    pthread_setname_np(pthread_self(), shortened.c_str());
#endif
}

} // namespace tessary
