// Internal: per-thread caches that stay safe at exit. Not part of the installed interface.
#pragma once

#include <optional>

namespace OrvexXml {

// An object of type T kept per thread (a scratch buffer, handles, match settings), made on
// first use and destroyed when the thread ends. A thread destroys its objects at its exit, and
// the main thread does so before the objects with static storage go, whose destructors (and
// atexit handlers) may still write or check documents. Such a late caller gets a fresh T in
// the fallback it passes, for its own call only, instead of the destroyed one.
template <class T>
class CPerThread {
public:
    static T& Get(std::optional<T>& fallback) {
        if (t_bGone) return fallback.emplace();
        thread_local CPerThread s_instance;
        return s_instance.m_value;
    }

    CPerThread(const CPerThread&) = delete;
    CPerThread& operator=(const CPerThread&) = delete;

private:
    CPerThread() = default;
    ~CPerThread() { t_bGone = true; }

    T m_value;
    // Trivially destructible, so that it can still be read after the thread's objects are gone.
    static thread_local bool t_bGone;
};

template <class T>
thread_local bool CPerThread<T>::t_bGone = false;

}  // namespace OrvexXml
