// Preloaded into a program: each write takes half of what it is given, as a write may.
#include <sys/syscall.h>
#include <unistd.h>

extern "C" ssize_t write(int file, void const* data, size_t size) {
    return syscall(SYS_write, file, data, size - size / 2);
}
