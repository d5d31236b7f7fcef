// Whether the program is built with a sanitizer that needs address space and stack of its own.
#ifndef VORNIK_TESTS_SANITIZERS_H
#define VORNIK_TESTS_SANITIZERS_H

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QUERYPACKAGE_TEST_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QUERYPACKAGE_TEST_SANITIZED 1
#endif
#endif

#endif  // VORNIK_TESTS_SANITIZERS_H
