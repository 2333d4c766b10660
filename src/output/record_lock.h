#pragma once

#include <string>

namespace kirameki {

// An advisory lock on a capture record for the length of a run, so that a second run on the
// same record refuses instead of mixing its frames with the first. The lock is held on a
// small file in the user's runtime folder named after the record's real path, not on the
// record itself: the record is replaced by a rename while the run goes on. The kernel drops
// the lock when the process ends, however it ends.
class RecordLock {
  public:
    RecordLock() = default;
    RecordLock(const RecordLock&) = delete;
    RecordLock& operator=(const RecordLock&) = delete;
    ~RecordLock();

    // False with one clear line in error when another run holds the record or the lock
    // cannot be made.
    bool Acquire(const std::string& recordPath, std::string& error);
    void Release();

  private:
    int fd_ = -1;
};

}  // namespace kirameki
