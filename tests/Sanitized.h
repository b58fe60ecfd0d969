// Whether the tests run under the sanitizers, which take ten times as long and keep freed memory.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
