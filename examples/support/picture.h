// Charts, drawn by gnuplot: one or several panels of lines, points or an image under one title.
#pragma once

#include "output_file.h"

#include <list>
#include <string>
#include <string_view>
#include <vector>

// Colours that colour-blind eyes tell apart (M. Okabe, K. Ito, Color Universal Design, 2008).
namespace colour {
constexpr std::string_view blue = "#0072B2", orange = "#E69F00", green = "#009E73", red = "#D55E00", sky = "#56B4E9",
                           black = "#30343B", band = "#E4EFF9";
}

struct Axis {
    enum Kind { linear, decades, hertz }; // hertz: logarithmic too, with marks at 1, 2 and 5
    std::string label;
    double from, to;
    Kind kind = linear;
};

class Panel {
public:
    Panel(Axis x, Axis y, std::string title = {}) : x_(std::move(x)), y_(std::move(y)), title_(std::move(title)) {}

    // Named ones stand in the legend.
    void line(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
              std::string_view colour, double width = 2, bool dashed = false);
    // A shaded line from the foot of the panel up.
    void area(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
              std::string_view colour);
    void points(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
                const std::vector<double>& low, const std::vector<double>& high, std::string_view colour, int shape);
    // What lies between two abscissas, shaded.
    void span(std::string_view name, double from, double to, std::string_view colour);
    // Rows from the bottom up, all over the panel.
    void image(const std::vector<float>& values, std::size_t columns, double least, double most, std::string_view unit);
    void words(double x, double y, std::string_view what, std::string_view colour = colour::black, double size = 14);

    // The height of a panel beside those of the others, 1 unless told, and the place of its legend in gnuplot's words.
    double share = 1;
    std::string legend = "top right";

private:
    friend class Picture;
    struct Curve {
        std::string columns, style;
        std::vector<double> data;
    };
    struct Image {
        std::vector<float> data;
        std::size_t columns = 0;
        double least = 0, most = 0;
        std::string unit;
    };
    Axis x_, y_;
    std::string title_, objects_;
    std::vector<Curve> curves_;
    Image image_;
};

class Picture {
public:
    static constexpr int width = 1400;
    static constexpr double left = 0.07, right = 0.975; // of every panel, as shares of the width

    Picture(std::string title, std::string subtitle, int height = 800)
        : title_(std::move(title)), subtitle_(std::move(subtitle)), height_(height) {}

    Panel& add(Panel panel) { return panels_.emplace_back(std::move(panel)); }

    // Writes a PNG image; closes the file but does not commit it.
    void write(OutputFile& file) const;

private:
    std::string title_, subtitle_;
    int height_;
    std::list<Panel> panels_;
};
