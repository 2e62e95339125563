#include "picture.h"
#include "trouble.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

using std::numbers::pi;

struct Colour {
    double red, green, blue, alpha = 1;
};
constexpr Colour paper{1, 1, 1}, ink{0.13, 0.15, 0.18}, faintInk{0.42, 0.45, 0.5}, grid{0.9, 0.91, 0.93},
    gridMain{0.82, 0.84, 0.87}, bandFill{0.93, 0.96, 1}, bandEdge{0.35, 0.5, 0.72};
// Orange and blue stay apart for colour-blind eyes and in grey.
constexpr Colour beforeLine{0.96, 0.65, 0.27}, afterLine{0.05, 0.27, 0.58};

constexpr double width = 1400, height = 800;
constexpr double left = 92, right = 1368, top = 118, bottom = 716;

struct DestroySurface {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct DestroyContext {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

// The scale reaches up to -60 dB at least, and silence is drawn at its foot.
constexpr double leastHighest = -60, rangeAtMost = 120;
double decibels(double power) {
    return std::max(10 * std::log10(std::min(power, 1e30)), leastHighest - rangeAtMost);
}

std::string frequencyLabel(double frequency) {
    return frequency >= 1000 ? text(frequency / 1000, " k") : text(frequency);
}

class Canvas {
public:
    explicit Canvas(const Picture& picture)
        : picture_(picture), surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(width), int(height))),
          context_(cairo_create(surface_.get())), binWidth_(picture.nyquist / double(picture.before.size() - 1)) {
        leftFrequency_ = std::min({20.0, picture.nyquist / 100, picture.low > 0 ? picture.low / 2 : 20.0});
        double highest = leastHighest - 2, lowest = 300;
        for (const std::vector<double>* powers : {&picture.before, &picture.after}) {
            for (std::size_t k = firstBin(); k < powers->size(); ++k) {
                highest = std::max(highest, decibels((*powers)[k]));
                lowest = std::min(lowest, decibels((*powers)[k]));
            }
        }
        highest_ = 10 * std::ceil((highest + 2) / 10);
        lowest_ = std::clamp(10 * std::floor((lowest - 2) / 10), highest_ - rangeAtMost, highest_ - 40);
    }

    void paint() {
        colour(paper);
        cairo_paint(cr());
        drawBand();
        drawGrid();
        cairo_save(cr());
        cairo_rectangle(cr(), left, top, right - left, bottom - top);
        cairo_clip(cr());
        drawLine(picture_.before, beforeLine, 5);
        drawLine(picture_.after, afterLine, 2);
        cairo_restore(cr());
        colour(faintInk);
        cairo_set_line_width(cr(), 1);
        cairo_rectangle(cr(), left, top, right - left, bottom - top);
        cairo_stroke(cr());
        drawWords();
    }

    cairo_surface_t* surface() { return surface_.get(); }
    cairo_status_t status() { return cairo_status(cr()); }

private:
    cairo_t* cr() { return context_.get(); }
    void colour(Colour c) { cairo_set_source_rgba(cr(), c.red, c.green, c.blue, c.alpha); }

    std::size_t firstBin() const { return static_cast<std::size_t>(std::ceil(leftFrequency_ / binWidth_)); }
    double x(double frequency) const {
        const double position = std::log(std::max(frequency, leftFrequency_) / leftFrequency_);
        return left + (right - left) * position / std::log(picture_.nyquist / leftFrequency_);
    }
    double y(double level) const { return top + (bottom - top) * (highest_ - level) / (highest_ - lowest_); }

    void line(double x0, double y0, double x1, double y1) {
        cairo_move_to(cr(), x0, y0);
        cairo_line_to(cr(), x1, y1);
        cairo_stroke(cr());
    }

    // Text whose anchor is at (x, y): 0 its left end, 0.5 its middle, 1 its right end. Shrinks to `room`.
    void words(double x, double y, const std::string& what, double size, double anchor, bool bold = false,
               double room = width) {
        cairo_select_font_face(cr(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                               bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cr(), size);
        cairo_text_extents_t extents;
        cairo_text_extents(cr(), what.c_str(), &extents);
        if (extents.x_advance > room) {
            cairo_set_font_size(cr(), size * room / extents.x_advance);
            cairo_text_extents(cr(), what.c_str(), &extents);
        }
        cairo_move_to(cr(), x - anchor * extents.x_advance, y);
        cairo_show_text(cr(), what.c_str());
    }

    void drawBand() {
        const double from = x(picture_.low), to = x(picture_.high);
        colour(bandFill);
        cairo_rectangle(cr(), from, top, to - from, bottom - top);
        cairo_fill(cr());
    }

    void drawGrid() {
        cairo_set_line_width(cr(), 1);
        double labelled = -100; // where the last label stood
        for (double decade = std::pow(10, std::floor(std::log10(leftFrequency_))); decade <= picture_.nyquist;
             decade *= 10) {
            for (int digit = 1; digit <= 9; ++digit) {
                const double frequency = digit * decade, place = std::round(x(frequency)) + 0.5;
                if (frequency < leftFrequency_ * 0.999 || frequency > picture_.nyquist * 1.001) continue;
                const bool main = digit == 1 || digit == 2 || digit == 5;
                colour(main ? gridMain : grid);
                line(place, top, place, bottom);
                if (!main || place - labelled < 50) continue;
                colour(ink);
                words(place, bottom + 24, frequencyLabel(frequency), 15, 0.5);
                labelled = place;
            }
        }
        const double step = highest_ - lowest_ > 80 ? 20 : 10;
        for (double level = step * std::floor(highest_ / step); level >= lowest_; level -= step) {
            const double place = std::round(y(level)) + 0.5;
            colour(gridMain);
            line(left, place, right, place);
            colour(ink);
            words(left - 10, place + 5, text(level == 0 ? 0.0 : level), 15, 1);
        }
        colour(bandEdge);
        cairo_set_line_width(cr(), 1.5);
        const double dashes[] = {6, 5};
        cairo_set_dash(cr(), dashes, 2, 0);
        for (const double edge : {picture_.low, picture_.high})
            if (edge > leftFrequency_ && edge < picture_.nyquist) line(x(edge), top, x(edge), bottom);
        cairo_set_dash(cr(), nullptr, 0, 0);
    }

    // One point a pixel column: the strongest of the bins that fall in it, so that tones keep their level. Between bins
    // that are further apart, straight lines.
    void drawLine(const std::vector<double>& powers, Colour c, double lineWidth) {
        colour(c);
        cairo_set_line_width(cr(), lineWidth);
        cairo_set_line_join(cr(), CAIRO_LINE_JOIN_ROUND);
        auto place = [&](std::size_t k) { return x(double(k) * binWidth_); };
        std::size_t k = std::max<std::size_t>(firstBin(), 2) - 1; // 0 Hz has no place on this axis
        while (k < powers.size()) {
            const double column = std::floor(place(k));
            std::size_t strongest = k;
            for (; k < powers.size() && std::floor(place(k)) == column; ++k)
                if (powers[k] > powers[strongest]) strongest = k;
            cairo_line_to(cr(), place(strongest), y(decibels(powers[strongest])));
        }
        cairo_stroke(cr());
    }

    void drawWords() {
        colour(ink);
        words(left, 46, picture_.title, 25, 0, true, right - left);
        colour(faintInk);
        words(left, 74, picture_.subtitle, 15, 0, false, right - left);

        double place = left;
        for (const auto& [name, c] : {std::pair{"before", beforeLine}, std::pair{"after", afterLine}}) {
            colour(c);
            cairo_set_line_width(cr(), 4);
            line(place, 99, place + 32, 99);
            colour(ink);
            words(place + 40, 104, name, 16, 0);
            place += 120;
        }
        colour(bandFill);
        cairo_rectangle(cr(), place, 91, 32, 16);
        cairo_fill_preserve(cr());
        colour(bandEdge);
        cairo_set_line_width(cr(), 1);
        cairo_stroke(cr());
        colour(ink);
        words(place + 40, 104, text("the band kept, ", picture_.low, " to ", picture_.high, " Hz"), 16, 0);

        words((left + right) / 2, height - 30, "Frequency (Hz)", 16, 0.5);
        cairo_save(cr());
        cairo_translate(cr(), 30, (top + bottom) / 2);
        cairo_rotate(cr(), -pi / 2);
        words(0, 0, "Level (dB, 0 is a sine of full scale)", 16, 0.5);
        cairo_restore(cr());
    }

    const Picture& picture_;
    std::unique_ptr<cairo_surface_t, DestroySurface> surface_;
    std::unique_ptr<cairo_t, DestroyContext> context_;
    double binWidth_, leftFrequency_, highest_, lowest_;
};

} // namespace

void draw(const Picture& picture, OutputFile& file) {
    Canvas canvas(picture);
    canvas.paint();
    cairo_status_t status = canvas.status();
    if (status == CAIRO_STATUS_SUCCESS) {
        const auto write = [](void* output, const unsigned char* data, unsigned bytes) {
            return static_cast<OutputFile*>(output)->write(data, bytes) ? CAIRO_STATUS_SUCCESS
                                                                        : CAIRO_STATUS_WRITE_ERROR;
        };
        status = cairo_surface_write_to_png_stream(canvas.surface(), write, &file);
    }
    file.close();
    if (status != CAIRO_STATUS_SUCCESS)
        throw Trouble(text("cannot draw ", printable(file.target()), " (", cairo_status_to_string(status), ")"));
}
