// Marks a function whose loops are worth compiling for several instruction sets: the program picks
// the widest that the processor has when it starts, and the build stays portable. They are named by
// level, which processors of every maker have; a model's name would mean that model's maker alone.
// Sanitizers run
// before the choice could be made, so they get the plain function, as do compilers without the
// attribute.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define TOLVANE_WIDE_VECTORS \
    __attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default")))
#else
#define TOLVANE_WIDE_VECTORS
#endif
