// Steps on a thread with a stack of a known size.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <pthread.h>

/// \param size  in octets; under the sanitizers, whose frames are larger, it is four times that
template <typename TStep>
void RunOnStack(std::size_t size, TStep step)
{
    pthread_attr_t attributes;
    pthread_t thread;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    size *= 4;
#endif
    const auto run = [](void* argument) -> void* {
        (*static_cast<TStep*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_attr_init(&attributes) + pthread_attr_setstacksize(&attributes, size), 0);
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &step), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}
