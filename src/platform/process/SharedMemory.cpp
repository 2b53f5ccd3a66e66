#include "platform/process/SharedMemory.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

namespace {

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category(), "cannot share memory");
}

} // namespace

SharedMemory::SharedMemory(std::size_t size)
    : descriptor_(::memfd_create("tessary", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
    // Sealed: a child that made it shorter would end whoever reads on, and one that made it longer
    // would take memory past its limit.
    if (!descriptor_.isOpen() || ::ftruncate(descriptor(), static_cast<off_t>(size)) != 0 ||
        ::fcntl(descriptor(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0)
        fail(errno);
    bytes_ = map(descriptor(), size);
}

std::shared_ptr<std::byte> SharedMemory::map(int descriptor, std::size_t size) {
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0)
        fail(errno);
    if (facts.st_size != static_cast<off_t>(size))
        fail(EINVAL);
    void* bytes = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    if (bytes == MAP_FAILED)
        fail(errno);
    return {static_cast<std::byte*>(bytes), [size](std::byte* mapped) { ::munmap(mapped, size); }};
}

} // namespace tessary
