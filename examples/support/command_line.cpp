#include "command_line.h"
#include "trouble.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>

namespace {

template <class T>
bool parsed(std::string_view word, T& value) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size();
}

[[noreturn]] void refuse(std::string_view option, std::string_view word, const std::string& kind) {
    throw Trouble(text(option, " takes ", kind, ", not '", printable(word), "'"));
}

} // namespace

double parseNumber(std::string_view option, std::string_view word, std::string_view kind) {
    double value = 0;
    if (!parsed(word, value) || !std::isfinite(value)) refuse(option, word, std::string(kind));
    return value;
}

std::function<void(std::string_view, std::string_view)> number(double& target, double least, double most,
                                                               std::string_view kind) {
    return [&target, least, most, kind](std::string_view option, std::string_view word) {
        target = parseNumber(option, word, kind);
        if (target < least || target > most) refuse(option, word, text(kind, " from ", least, " to ", most));
    };
}

std::function<void(std::string_view, std::string_view)> whole(int& target, int least, int most) {
    return [&target, least, most](std::string_view option, std::string_view word) {
        if (!parsed(word, target) || target < least || target > most)
            refuse(option, word, text("a whole number from ", least, " to ", most));
    };
}

std::function<void(std::string_view, std::string_view)> folder(std::filesystem::path& target) {
    return [&target](std::string_view option, std::string_view word) {
        if (word.empty()) throw Trouble(text(option, " takes a folder, not an empty name"));
        target = word;
    };
}

std::vector<std::filesystem::path> CommandLine::parse(int argc, char** argv) const {
    std::vector<std::filesystem::path> found;
    bool onlyOperands = false;
    for (int n = 1; n < argc; ++n) {
        const std::string_view argument = argv[n];
        if (onlyOperands || argument.size() < 2 || argument[0] != '-') {
            if (argument.empty()) throw Trouble("a file name is empty");
            found.emplace_back(argument);
            continue;
        }
        if (argument == "--") {
            onlyOperands = true;
            continue;
        }
        if (argument == "--help" || argument == "-h") throw HelpWanted{help()};
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const auto option = std::ranges::find(options, name, &Option::name);
        if (option == options.end())
            throw Trouble(text("unknown option ", printable(name), "; ", program_invocation_short_name,
                               " --help lists them all"));
        if (equals == argument.npos && n + 1 == argc) throw Trouble(text(name, " needs a value behind it"));
        option->set(name, equals == argument.npos ? std::string_view(argv[++n]) : argument.substr(equals + 1));
    }
    if (found.size() > mostOperands)
        throw Trouble(text("too many file names: at most ", mostOperands, "; ", program_invocation_short_name,
                           " --help tells which"));
    return found;
}

std::string CommandLine::help() const {
    std::string all = text("Usage: ", program_invocation_short_name, " [OPTION]... ", operands, "\n\n", about, "\n");
    std::size_t width = std::string_view("--help").size();
    for (const Option& option : options) width = std::max(width, option.name.size() + 1 + option.value.size());
    const auto row = [&](std::string left, std::string_view help) {
        left.resize(width, ' ');
        all += "  " + left + "  ";
        for (const char c : help) {
            all += c;
            if (c == '\n') all.append(width + 4, ' ');
        }
        all += '\n';
    };
    for (const Option& option : options) row(text(option.name, ' ', option.value), option.help);
    row("--help", "this text");
    if (!more.empty()) all += text("\n", more);
    return all + "Exit status: 0 done, 2 nothing done and the reason on standard error.\n";
}
