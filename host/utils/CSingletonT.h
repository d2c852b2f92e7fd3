#pragma once
/// @file The process-wide object of a class, created on first use.

#include "host/HostExport.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace utils {

/// Holder of the one object of class T. Visible across shared libraries, so that every library of the
/// process sees the same object.
template <class T>
class INDICATORHOST_TEMPLATE CSingletonT
{
public:
    /// The object; the first caller constructs it while others wait without time limit. Any thread.
    static T* instance()
    {
        if (T* existing = s_object.load(std::memory_order_acquire))
            return existing;
        const std::lock_guard<std::mutex> lock(s_creation);
        if (!s_object.load(std::memory_order_relaxed)) {
            s_owner = std::make_shared<T>();
            s_object.store(s_owner.get(), std::memory_order_release);
        }
        return s_object.load(std::memory_order_relaxed);
    }

    /// Destroys the object; the next instance() makes a new one. Takes no lock: the caller makes sure
    /// that nobody uses the object any more.
    static void release()
    {
        s_object.store(nullptr, std::memory_order_release);
        s_owner.reset();
    }

private:
    inline static std::atomic<T*> s_object { nullptr };
    inline static std::shared_ptr<T> s_owner;
    inline static std::mutex s_creation;
};

} // namespace utils
