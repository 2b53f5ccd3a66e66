#include "phones/ThreadName.h"

#include <pthread.h>

namespace tessary {

void setThreadName(const char* name) {
#ifdef __APPLE__
    pthread_setname_np(name);
#else
    pthread_setname_np(pthread_self(), name);
#endif
}

} // namespace tessary
