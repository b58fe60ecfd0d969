// While it lives, no file of this process can grow past so many bytes: the disk that is full in the
// middle of a write.
#pragma once
#include <sys/resource.h>

#include <csignal>

class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : oldAction(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit{bytes, oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldAction);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit oldLimit{};
    void (*oldAction)(int);
};
