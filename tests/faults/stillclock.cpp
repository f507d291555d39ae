// Preloaded into a program: its calendar clock stands still, long before any file was changed. What
// the library remembers of folders and files until they settle is read anew each time then, and a
// run makes the same calls, however fast it is.
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    if (clock == CLOCK_REALTIME) {
        *time = {};
        return 0;
    }
    return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
}
