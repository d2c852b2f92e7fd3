#include "host/embedded/ResetHooks.h"

#include "host/embedded/EmbeddedHost.h"

#include <vector>

namespace TC::embedded {

namespace {

std::vector<void (*)()>& hooks()
{
    static std::vector<void (*)()> registered;
    return registered;
}

} // namespace

ResetHook::ResetHook(void (*restoreDefaults)())
{
    hooks().push_back(restoreDefaults);
}

void ResetHook::runAll()
{
    for (void (*restoreDefaults)() : hooks())
        restoreDefaults();
}

void reset()
{
    ResetHook::runAll();
}

} // namespace TC::embedded
