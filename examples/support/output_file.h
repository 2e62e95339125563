// Files that appear under their names only when they are complete.
#pragma once

#include <cstddef>
#include <filesystem>
#include <sys/types.h>
#include <vector>

// A folder, made if it is missing; what was made and is still empty at the end is removed again.
class OutputFolder {
public:
    explicit OutputFolder(const std::filesystem::path& folder);
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

private:
    std::vector<std::filesystem::path> made_; // the innermost first
};

// Written under a temporary name in the folder of its target; commit() gives it its name. What was not committed is
// removed. write, read and seek neither throw nor give up: they note the first failure, and close() throws it.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& target);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    bool write(const void* data, std::size_t bytes);
    std::ptrdiff_t read(void* data, std::size_t bytes);
    off_t seek(off_t offset, int whence);
    off_t size() const;

    bool failed() const { return error_ != 0; }
    void close();
    void commit();
    const std::filesystem::path& target() const { return target_; }
    const std::filesystem::path& place() const { return temporary_; } // where it lies until then

    [[noreturn]] void fail() const; // with the failure noted

private:
    std::filesystem::path target_, temporary_;
    int file_ = -1;
    int error_ = 0;
};
