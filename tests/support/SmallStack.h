#pragma once

#include <functional>
#include <stdexcept>

#include <pthread.h>

/// Runs `work` on a thread of 512 KiB of stack, as under `ulimit -s 512`, and waits for it: recursion that
/// grows with the data ends there in a crash.
inline void runOnSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 512 * 1024);
    const auto call = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    pthread_t thread;
    const int failed = pthread_create(&thread, &attributes, call, &work);
    pthread_attr_destroy(&attributes);
    if (failed != 0) {
        throw std::runtime_error("no thread");
    }
    pthread_join(thread, nullptr);
}
