// The working memory of calls that a caller may give a buffer.
#pragma once

#include "foundation/objects.h"
#include "orbs/foundation.h"

namespace orbs {

// The working memory of one call: the caller's, aligned up, or a block of our own while the call runs.
class WorkArea {
public:
    WorkArea(Orb8u* pBuffer, int size, bool needed) {
        if (!needed) return;
        if (!pBuffer) pBuffer = own_ = orbsMalloc_8u(size);
        failed_ = !pBuffer;
        // A cache line's alignment where the 32 bytes told for it suffice.
        area_ = alignUp(pBuffer, 64);
        if (own_ || area_ - pBuffer > 32) area_ = alignUp(pBuffer, 32);
    }
    ~WorkArea() {
        if (own_) orbsFree(own_);
    }
    WorkArea(const WorkArea&) = delete;
    WorkArea& operator=(const WorkArea&) = delete;

    bool failed() const { return failed_; }
    Orb8u* bytes() const { return area_; }
    template <class T>
    T* as() const {
        return reinterpret_cast<T*>(area_);
    }

private:
    Orb8u *own_ = nullptr, *area_ = nullptr;
    bool failed_ = false;
};

} // namespace orbs
