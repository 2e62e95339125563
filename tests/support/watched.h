// Memory that remembers which threads write to it.
#pragma once

#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <new>
#include <set>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace support {

// Pages that cannot be written: the first write to each faults, is noted, and goes on. One at a time.
class WatchedPages {
public:
    explicit WatchedPages(std::size_t bytes) : writers_(bytes / page() + 1) {
        void* map = mmap(nullptr, size(), PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (map == MAP_FAILED) throw std::bad_alloc();
        begin_ = static_cast<unsigned char*>(map);
        watched = this;
        struct sigaction action = {};
        action.sa_sigaction = noteWriter;
        action.sa_flags = SA_SIGINFO;
        sigaction(SIGSEGV, &action, &earlier_);
    }
    ~WatchedPages() {
        sigaction(SIGSEGV, &earlier_, nullptr);
        munmap(begin_, size());
    }
    WatchedPages(const WatchedPages&) = delete;
    WatchedPages& operator=(const WatchedPages&) = delete;

    void* data() const { return begin_; }

    // How many threads were the first to write to a page.
    int writers() const {
        std::set<pid_t> threads;
        for (const auto& writer : writers_)
            if (writer != 0) threads.insert(writer);
        return static_cast<int>(threads.size());
    }

private:
    static std::size_t page() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }
    std::size_t size() const { return writers_.size() * page(); }

    static void noteWriter(int, siginfo_t* fault, void*) {
        const std::uintptr_t offset =
            reinterpret_cast<std::uintptr_t>(fault->si_addr) - reinterpret_cast<std::uintptr_t>(watched->begin_);
        if (offset >= watched->size()) { // another fault, which happens again without this handler
            sigaction(SIGSEGV, &watched->earlier_, nullptr);
            return;
        }
        watched->writers_[offset / page()] = gettid();
        mprotect(watched->begin_ + offset / page() * page(), page(), PROT_READ | PROT_WRITE);
    }

    inline static WatchedPages* watched = nullptr;
    std::vector<std::atomic<pid_t>> writers_;
    unsigned char* begin_;
    struct sigaction earlier_;
};

} // namespace support
