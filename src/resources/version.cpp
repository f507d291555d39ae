#include "version.h"

char const* KvarnProgVersion() {
    return KVARNPROG_VERSION;
}
