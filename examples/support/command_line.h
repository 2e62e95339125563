// The command line: the options of a program in one table, which --help shows.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct Option {
    std::string_view name;  // "--low"
    std::string_view value; // what stands behind it: "HZ"
    std::string_view help;
    std::function<void(std::string_view name, std::string_view value)> set;
};

// Setters of variables. They refuse what lies outside, and say so with `kind`: "a frequency in Hz".
std::function<void(std::string_view, std::string_view)> number(double& target, double least, double most,
                                                               std::string_view kind);
std::function<void(std::string_view, std::string_view)> whole(int& target, int least, int most);
std::function<void(std::string_view, std::string_view)> folder(std::filesystem::path& target);

// A number, all of `word`; throws with the option's name and what it takes.
double parseNumber(std::string_view option, std::string_view word, std::string_view kind);

struct CommandLine {
    std::string_view operands; // as the usage shows them: "[INPUT [OUTPUT]]"
    std::size_t mostOperands;
    std::string_view about; // what the program does and what the operands are
    std::vector<Option> options;
    std::string_view more = {}; // behind the options

    // The operands. Throws Trouble for what it does not understand, and HelpWanted.
    std::vector<std::filesystem::path> parse(int argc, char** argv) const;

    std::string help() const;
};

struct HelpWanted {
    std::string text;
};
