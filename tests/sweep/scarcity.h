// Lack of memory: while a Scarcity lives, one allocation of the library fails, and what it takes and gives back is
// counted. Of no effect beside a sanitizer, which brings an allocator of its own.
#pragma once

namespace sweep {

class Scarcity {
public:
    explicit Scarcity(int failing); // which allocation from here on, counting from 1
    ~Scarcity();
    Scarcity(const Scarcity&) = delete;
    Scarcity& operator=(const Scarcity&) = delete;

    bool wasFelt() const; // the allocation was asked for
    int blocksHeld() const;
};

} // namespace sweep
