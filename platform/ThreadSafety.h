#pragma once

/// Clang's thread-safety annotations under short names, empty for other compilers. They state which lock guards a
/// member and which function requires the lock, and clang rejects code that violates them.
#if defined(__clang__)
#define ORV_THREAD_ANNOTATION(x) __attribute__((x))
#else
#define ORV_THREAD_ANNOTATION(x)
#endif

#define CAPABILITY(x) ORV_THREAD_ANNOTATION(capability(x))
#define SCOPED_CAPABILITY ORV_THREAD_ANNOTATION(scoped_lockable)
#define GUARDED_BY(x) ORV_THREAD_ANNOTATION(guarded_by(x))
#define REQUIRES(...) ORV_THREAD_ANNOTATION(requires_capability(__VA_ARGS__))
#define EXCLUDES(...) ORV_THREAD_ANNOTATION(locks_excluded(__VA_ARGS__))
#define ACQUIRE(...) ORV_THREAD_ANNOTATION(acquire_capability(__VA_ARGS__))
#define RELEASE(...) ORV_THREAD_ANNOTATION(release_capability(__VA_ARGS__))
#define TRY_ACQUIRE(...) ORV_THREAD_ANNOTATION(try_acquire_capability(__VA_ARGS__))
#define ASSERT_CAPABILITY(...) ORV_THREAD_ANNOTATION(assert_capability(__VA_ARGS__))
#define RETURN_CAPABILITY(x) ORV_THREAD_ANNOTATION(lock_returned(x))
#define NO_THREAD_SAFETY_ANALYSIS ORV_THREAD_ANNOTATION(no_thread_safety_analysis)
