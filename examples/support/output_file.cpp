#include "output_file.h"
#include "trouble.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

OutputFolder::OutputFolder(const fs::path& folder) {
    std::error_code error;
    for (fs::path part = folder; !part.empty() && !fs::exists(part, error); part = part.parent_path())
        made_.push_back(part);
    fs::create_directories(folder, error);
    if (error)
        throw Trouble(text("cannot make the folder ", printable(folder), " (", error.message(), "); give another one"));
}

OutputFolder::~OutputFolder() {
    for (const fs::path& part : made_) rmdir(part.c_str()); // refused where something lies in it
}

OutputFile::OutputFile(const fs::path& target) {
    // Through a symbolic link the file that it names is replaced, not the link.
    std::error_code ignored;
    target_ = fs::is_symlink(target, ignored) ? fs::weakly_canonical(target, ignored) : target;
    const fs::file_status status = fs::status(target_, ignored);
    if (fs::is_directory(status)) throw Trouble(text(printable(target), " is a folder; give the name of a file"));
    // Renaming would replace a device or a pipe by a file.
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw Trouble(text(printable(target), " is no ordinary file; give another name"));
    const fs::path folder = target_.has_parent_path() ? target_.parent_path() : ".";
    for (int attempt = 0; file_ < 0; ++attempt) {
        temporary_ = folder / text(".", program_invocation_short_name, "-", getpid(), "-", attempt);
        file_ = open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file_ < 0 && errno != EEXIST)
            throw Trouble(text("cannot write into the folder ", printable(folder), " (", std::strerror(errno),
                               "); give another one"));
    }
}

OutputFile::~OutputFile() {
    if (file_ >= 0) ::close(file_);
    if (!temporary_.empty()) unlink(temporary_.c_str());
}

bool OutputFile::write(const void* data, std::size_t bytes) {
    const char* rest = static_cast<const char*>(data);
    while (bytes > 0 && !failed()) {
        const ssize_t written = ::write(file_, rest, bytes);
        if (written < 0) {
            if (errno != EINTR) error_ = errno;
            continue;
        }
        rest += written;
        bytes -= static_cast<std::size_t>(written);
    }
    return !failed();
}

std::ptrdiff_t OutputFile::read(void* data, std::size_t bytes) {
    const ssize_t count = ::read(file_, data, bytes);
    if (count < 0 && !failed()) error_ = errno;
    return count;
}

off_t OutputFile::seek(off_t offset, int whence) {
    const off_t place = lseek(file_, offset, whence);
    if (place < 0 && !failed()) error_ = errno;
    return place;
}

off_t OutputFile::size() const {
    struct stat status {};
    return fstat(file_, &status) == 0 ? status.st_size : -1;
}

void OutputFile::close() {
    if (file_ >= 0 && ::close(file_) != 0 && !failed()) error_ = errno;
    file_ = -1;
    if (failed()) fail();
}

void OutputFile::commit() {
    close();
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0) {
        error_ = errno;
        fail();
    }
    temporary_.clear();
}

void OutputFile::fail() const {
    const char* advice = error_ == ENOSPC || error_ == EDQUOT || error_ == EFBIG
                             ? "; make room there or choose another folder"
                             : "; choose another folder";
    throw Trouble(text("cannot write ", printable(target_), " (", std::strerror(error_), ")", advice));
}
