#include "program.h"
#include "command_line.h"
#include "trouble.h"

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <new>
#include <orbs.hpp>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void complain(const char* line) {
    std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, line);
}

} // namespace

int runProgram(int argc, char** argv, void (*body)(int argc, char** argv)) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow shows as a failed write
    struct sigaction stop {};
    stop.sa_handler = [](int) { interrupted = 1; };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &stop, nullptr);
    try {
        try {
            body(argc, argv);
        } catch (const HelpWanted& help) {
            if (std::fputs(help.text.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
                throw Trouble("cannot write to standard output");
        }
        return 0;
    } catch (const std::bad_alloc&) { complain("not enough memory"); } catch (const orbs::Error& error) {
        complain(("a call of the library was refused (" + std::string(error.what()) + ")").c_str());
    } catch (const std::exception& error) { complain(error.what()); }
    return 2;
}

void stopIfInterrupted() {
    if (interrupted) throw Trouble("interrupted; nothing was written");
}

void note(const std::string& line) {
    complain(("note: " + line).c_str());
}

void report(const char* what, const std::string& line) {
    if (std::printf("%-10s%s\n", what, line.c_str()) < 0 || std::fflush(stdout) != 0)
        throw Trouble("cannot write to standard output; the files are written");
}

Progress::~Progress() {
    if (shown_) std::fprintf(stderr, "\r\033[K");
}

void Progress::at(double done, double all) {
    stopIfInterrupted();
    const double time = watch_.seconds();
    if (time < next_ || isatty(STDERR_FILENO) != 1) return;
    next_ = time + 0.1;
    shown_ = true;
    std::fprintf(stderr, "\r\033[K%s: %.0f %%, %.0f s", what_.c_str(), 100 * done / all, time);
}

void Results::commit() {
    stopIfInterrupted();
    for (SoundWriter& sound : sounds_) sound.commit();
    for (OutputFile& file : files_) file.commit();
}

void keepInput(const std::filesystem::path& input, const std::filesystem::path& output) {
    std::error_code ignored;
    if (std::filesystem::equivalent(input, output, ignored))
        throw Trouble(text("writing ", printable(output), " would destroy the input; give another name"));
}

Names::Names(const std::vector<std::filesystem::path>& operands, const std::filesystem::path& folder,
             const std::filesystem::path& own, const std::string& suffix)
    : made(operands.empty()), folder_(folder.empty() ? "demo" : folder), inFolder_(operands.size() < 2) {
    if (!inFolder_ && !folder.empty()) throw Trouble("give either OUTPUT or --out, not both");
    input = made ? folder_ / own : operands[0];
    output = inFolder_ ? folder_ / (input.stem().string() + suffix + input.extension().string()) : operands[1];
    picture = std::filesystem::path(output).replace_extension(".png");
    if (picture == output)
        throw Trouble(
            text(printable(output), " is what the picture is to be called; give OUTPUT the ending of a sound file"));
    keepInput(input, output);
    keepInput(input, picture);
}

std::filesystem::path Names::source(Results& results, int rate, const std::function<std::vector<float>()>& make) const {
    if (!made) return input;
    results.makeFolder(folder_);
    SoundWriter& sound = results.sound(input, madeFormat, rate, 1);
    sound.writeAll(make());
    return sound.place();
}

void Names::makeFolder(Results& results) const {
    if (inFolder_ && !made) results.makeFolder(folder_);
}
