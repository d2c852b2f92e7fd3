#include "host/embedded/ReloadSetup.h"
#include "host/embedded/ResetHooks.h"
#include "host/se/LoadConfig.h"

#include <utility>

namespace {

using Receiver = std::function<void(const std::string&, const std::string&, const std::string&)>;

constexpr int kTaken = 0;
constexpr int kNobodyListens = -1;

Receiver& receiver()
{
    static Receiver current;
    return current;
}

const TC::embedded::ResetHook s_resetReload([] { receiver() = nullptr; });

} // namespace

int se::loadConfig(const std::string& root, const std::string& name, const std::string& extra)
{
    const Receiver current = receiver();
    if (!current)
        return kNobodyListens;
    current(root, name, extra);
    return kTaken;
}

void TC::embedded::setReloadReceiver(Receiver newReceiver)
{
    receiver() = std::move(newReceiver);
}
