// Part of every program that is built for the thread sanitizer. Qt starts children with clone() and
// the flags of vfork(), of which the sanitizer knows nothing: the child spoils what the sanitizer
// keeps about the thread that started it, and every later hand-over of that thread looks like a
// race. A real fork() is known to it.

#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdarg>

extern "C" int clone(int (*run)(void*), void* /*stack*/, int flags, void* argument, ...) {
    const pid_t child = fork();
    if (child == 0)
        _exit(run(argument));
    if (child > 0 && (flags & CLONE_PIDFD) != 0) {
        std::va_list rest;
        va_start(rest, argument);
        *va_arg(rest, int*) = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
        va_end(rest);
    }
    return child;
}
