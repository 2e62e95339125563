// What all programs have in common: main, interrupts, lines for the user, and results that appear together.
#pragma once

#include "output_file.h"
#include "sound.h"

#include <chrono>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

// Runs the body. Trouble is one line on standard error and the exit status 2.
int runProgram(int argc, char** argv, void (*body)(int argc, char** argv));

// Throws once the user has asked for an end.
void stopIfInterrupted();

void note(const std::string& line);
void report(const char* what, const std::string& line);

class Stopwatch {
public:
    double seconds() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point start_ = Clock::now();
};

// A line on the terminal that is written over, for work that takes longer than a moment. Ends what was interrupted.
class Progress {
public:
    explicit Progress(std::string what) : what_(std::move(what)) {}
    ~Progress();
    void at(double done, double all);

private:
    std::string what_;
    Stopwatch watch_;
    double next_ = 0.5;
    bool shown_ = false;
};

// The files that a program writes: all of them appear, or none.
class Results {
public:
    void makeFolder(const std::filesystem::path& folder) { folder_.emplace(folder); }
    SoundWriter& sound(const std::filesystem::path& path, int format, int rate, int channels) {
        return sounds_.emplace_back(path, format, rate, channels);
    }
    OutputFile& file(const std::filesystem::path& path) { return files_.emplace_back(path); }
    void commit();

private:
    std::optional<OutputFolder> folder_; // the last one to go
    std::list<SoundWriter> sounds_;
    std::list<OutputFile> files_;
};

// No output may be written over an input.
void keepInput(const std::filesystem::path& input, const std::filesystem::path& output);

// The names of what a program that changes a sound reads and writes.
struct Names {
    // Operands INPUT and OUTPUT. Without an INPUT the program makes its own sound, `own`, in the folder; without an
    // OUTPUT that is called as the input with a suffix, in the folder too.
    Names(const std::vector<std::filesystem::path>& operands, const std::filesystem::path& folder,
          const std::filesystem::path& own, const std::string& suffix);

    // Where the input is to be read; what the program makes itself is made and written now.
    std::filesystem::path source(Results& results, int rate, const std::function<std::vector<float>()>& make) const;
    // The folder, late, so that a bad input leaves none behind.
    void makeFolder(Results& results) const;

    bool made;
    std::filesystem::path input, output, picture;

private:
    std::filesystem::path folder_;
    bool inFolder_;
};
