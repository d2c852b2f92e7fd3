// SPDX-License-Identifier: MIT
#pragma once
/// @file The process-wide object of a class, created on first use.

#include "host/HostExport.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <typeinfo>

namespace utils {

/// Where the one object of a class is kept.
struct SingletonPlace
{
    std::atomic<void*> object { nullptr }; ///< null until it is made
    std::shared_ptr<void> owner;           ///< destroys it
    std::mutex creation;                   ///< held while the object is made
};

/// The place of a class, the same for every library of the process: the host library keeps it. Any thread;
/// valid until the process has ended.
INDICATORHOST_EXPORT SingletonPlace& singletonPlace(const std::type_info& type);

/// Access to the one object of class T.
template <class T>
class CSingletonT
{
public:
    /// The object; the first caller constructs it while others wait without time limit. Any thread.
    static T* instance()
    {
        SingletonPlace& its = place();
        if (void* existing = its.object.load(std::memory_order_acquire))
            return static_cast<T*>(existing);
        const std::lock_guard<std::mutex> lock(its.creation);
        if (!its.object.load(std::memory_order_relaxed)) {
            const auto made = std::make_shared<T>();
            its.owner = made;
            its.object.store(made.get(), std::memory_order_release);
        }
        return static_cast<T*>(its.object.load(std::memory_order_relaxed));
    }

    /// Destroys the object; the next instance() makes a new one. Takes no lock: the caller makes sure
    /// that nobody uses the object any more.
    static void release()
    {
        SingletonPlace& its = place();
        its.object.store(nullptr, std::memory_order_release);
        its.owner.reset();
    }

private:
    /// Asked of the host once by each library; the answer is the same for all of them.
    static SingletonPlace& place()
    {
        static SingletonPlace& asked = singletonPlace(typeid(T));
        return asked;
    }
};

} // namespace utils
