#include "picture.h"
#include "program.h"
#include "trouble.h"

#include <cmath>
#include <cstring>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A file in memory: what gnuplot reads and writes.
class Memory {
public:
    Memory() : file_(memfd_create("picture", 0)) {
        if (file_ < 0) throw Trouble(text("cannot draw the picture (", std::strerror(errno), ")"));
    }
    ~Memory() { close(file_); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    int file() const { return file_; }
    void write(const void* data, std::size_t bytes) const {
        const char* rest = static_cast<const char*>(data);
        while (bytes > 0) {
            const ssize_t written = ::write(file_, rest, bytes);
            if (written < 0) throw Trouble(text("cannot draw the picture (", std::strerror(errno), ")"));
            rest += written;
            bytes -= static_cast<std::size_t>(written);
        }
    }
    void rewind() const { lseek(file_, 0, SEEK_SET); }
    std::string contents() const {
        std::string all(static_cast<std::size_t>(lseek(file_, 0, SEEK_END)), '\0');
        rewind();
        const ssize_t got = ::read(file_, all.data(), all.size());
        all.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        return all;
    }

private:
    int file_;
};

// The script comes as standard input, the data as the file 3; the picture goes to standard output. gnuplot is in a
// group of its own, so that an interrupt from the terminal ends this program, which then cleans up.
void runGnuplot(const Memory& script, const Memory& data, const Memory& picture) {
    script.rewind();
    Memory complaints;
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    int target = 0;
    for (const int file : {script.file(), picture.file(), complaints.file(), data.file()})
        posix_spawn_file_actions_adddup2(&files, file, target++);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    const char* const arguments[] = {"gnuplot", "-d", nullptr};
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, arguments[0], &files, &attributes, const_cast<char* const*>(arguments), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error == ENOENT) throw Trouble("gnuplot, which draws the picture, is not installed (Debian's gnuplot-nox)");
    if (error != 0) throw Trouble(text("cannot start gnuplot (", std::strerror(error), ")"));
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    if (status != 0) {
        std::string said = complaints.contents();
        for (char& c : said)
            if (c == '\n') c = ' ';
        throw Trouble(text("gnuplot could not draw the picture (", said, ")"));
    }
}

// A string of gnuplot's in which nothing is special.
std::string quoted(std::string_view words) {
    std::string all = "'";
    for (const char c : words) all += c == '\'' ? "''" : std::string(1, c);
    return all + "'";
}

std::string shortened(const std::string& words, std::size_t most) {
    if (words.size() <= most) return words;
    std::size_t cut = most;
    while ((words[cut] & 0xc0) == 0x80) --cut; // not within a character
    return words.substr(0, cut) + "\u2026";
}

std::string legendOf(std::string_view name) {
    return name.empty() ? "notitle" : "title " + quoted(name);
}

std::vector<double> woven(const std::vector<const std::vector<double>*>& columns) {
    std::vector<double> all;
    for (std::size_t n = 0; n < columns[0]->size(); ++n)
        for (const std::vector<double>* column : columns) all.push_back((*column)[n]);
    return all;
}

std::string hertzTics(const Axis& axis) {
    std::string tics;
    for (double decade = 1; decade <= axis.to; decade *= 10) {
        for (int digit = 1; digit <= 9; ++digit) {
            const double frequency = digit * decade;
            if (frequency < axis.from * 0.999 || frequency > axis.to * 1.001) continue;
            const bool main = digit == 1 || digit == 2 || digit == 5;
            const std::string label = !main ? "" : frequency < 1000 ? text(frequency) : text(frequency / 1000, " k");
            tics += text(tics.empty() ? "" : ", ", quoted(label), ' ', frequency, main ? " 0" : " 1");
        }
    }
    return "(" + tics + ")";
}

std::string axisSettings(char name, const Axis& axis) {
    std::string all = text("unset logscale ", name, "\nset ", name, "tics autofreq\nset format ", name, " '%h'\nset ",
                           name, "range [", axis.from, ':', axis.to, "]\nset ", name, "label ", quoted(axis.label),
                           " font ',15'", name == 'y' ? " offset 0.5,0" : "", '\n');
    if (axis.kind != Axis::linear) all += text("set logscale ", name, '\n');
    if (axis.kind == Axis::decades) all += text("set format ", name, " '10^{%T}'\n");
    if (axis.kind == Axis::hertz) all += text("set ", name, "tics ", hertzTics(axis), '\n');
    return all;
}

// A light background to dark blue, even steps of lightness.
constexpr std::string_view palette =
    "set palette defined (0 '#ffffff', 1 '#eef5fb', 2 '#cfe3f2', 3 '#9cc8e4', 4 '#5ba4cf', "
    "5 '#2b7cb5', 6 '#125a93', 7 '#083a68', 8 '#041f3d')\n";

} // namespace

void Panel::line(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
                 std::string_view colour, double width, bool dashed) {
    curves_.push_back(
        {"1:2", text("with lines lw ", width, " lc rgb '", colour, dashed ? "' dt (12,8) " : "' ", legendOf(name)),
         woven({&x, &y})});
}

void Panel::area(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
                 std::string_view colour) {
    curves_.push_back(
        {"1:2", text("with filledcurves y1=", y_.from, " fs solid noborder lc rgb '", colour, "' ", legendOf(name)),
         woven({&x, &y})});
}

void Panel::points(std::string_view name, const std::vector<double>& x, const std::vector<double>& y,
                   const std::vector<double>& low, const std::vector<double>& high, std::string_view colour,
                   int shape) {
    curves_.push_back({"1:2:3:4",
                       text("with yerrorbars lw 2 ps 1.5 pt ", shape, " lc rgb '", colour, "' ", legendOf(name)),
                       woven({&x, &y, &low, &high})});
}

void Panel::span(std::string_view name, double from, double to, std::string_view colour) {
    objects_ += text("set object rectangle from ", from, ", graph 0 to ", to, ", graph 1 behind fillcolor rgb '",
                     colour, "' fillstyle solid noborder\n");
    if (!name.empty()) // what stands in the legend has to be a curve
        curves_.push_back(
            {"1:2", text("with lines lw 12 lc rgb '", colour, "' ", legendOf(name)), {std::nan(""), std::nan("")}});
}

void Panel::image(const std::vector<float>& values, std::size_t columns, double least, double most,
                  std::string_view unit) {
    image_ = {values, columns, least, most, std::string(unit)};
}

void Panel::words(double x, double y, std::string_view what, std::string_view colour, double size) {
    objects_ += text("set label ", quoted(what), " at ", x, ',', y, " center front noenhanced font ',", size,
                     "' textcolor rgb '", colour, "'\n");
}

void Picture::write(OutputFile& file) const {
    Memory script, data, picture;
    std::size_t offset = 0;
    const auto store = [&](const auto& values) {
        const std::size_t bytes = values.size() * sizeof values[0], at = offset;
        data.write(values.data(), bytes);
        offset += bytes;
        return at;
    };
    // Where the panels stand, as shares of the height, below the title.
    const bool titled = !panels_.front().title_.empty();
    const double pixel = 1.0 / height_, top = 1 - (titled ? 118 : 92) * pixel, gap = 88 * pixel, foot = 66 * pixel;
    double shares = 0;
    for (const Panel& panel : panels_) shares += panel.share;
    const double room = top - foot - gap * static_cast<double>(panels_.size() - 1);

    std::string all = text("set encoding utf8\nset terminal pngcairo size ", width, ',', height_,
                           " font 'sans,13' background rgb 'white' noenhanced\nset border lc rgb '#6B737F'\n",
                           "set tics nomirror textcolor rgb '#20252C'\nset tics scale 0.6\nset bars 0.6\n",
                           "set grid xtics ytics mxtics lt 1 lw 1 lc rgb '#DDE1E6', lt 1 lw 1 lc rgb '#EEF0F3'\n",
                           palette, "set multiplot\nset label 1 ", quoted(shortened(title_, 88)), " at screen ", left,
                           ", screen ", 1 - 36 * pixel, " font ':Bold,20' textcolor rgb '#20252C'\nset label 2 ",
                           quoted(shortened(subtitle_, 150)), " at screen ", left, ", screen ", 1 - 66 * pixel,
                           " font ',14' textcolor rgb '#5A626D'\n");
    double upper = top;
    for (const Panel& panel : panels_) {
        const double height = room * panel.share / shares;
        const bool image = panel.image_.columns > 0;
        all += text("set lmargin at screen ", left, "\nset rmargin at screen ", image ? right - 0.06 : right,
                    "\nset tmargin at screen ", upper, "\nset bmargin at screen ", upper - height, "\nset title ",
                    quoted(panel.title_), " offset 0,-0.6 font ':Bold,14'\n", axisSettings('x', panel.x_),
                    axisSettings('y', panel.y_), panel.objects_, "set key default\nset key ", panel.legend,
                    " Left reverse samplen 2.5 spacing 1.15 font ',14' opaque fillcolor rgb '#FFFFFF'\n");
        if (panel.y_.kind == Axis::decades) all += "set termoption enhanced\n";
        std::string plot;
        if (image) {
            const std::size_t columns = panel.image_.columns, rows = panel.image_.data.size() / columns;
            const double dx = (panel.x_.to - panel.x_.from) / static_cast<double>(columns),
                         dy = (panel.y_.to - panel.y_.from) / static_cast<double>(rows);
            all += text("set cbrange [", panel.image_.least, ':', panel.image_.most, "]\nset cblabel ",
                        quoted(panel.image_.unit), " font ',15' offset 0.5,0\nset colorbox user origin screen ",
                        right - 0.045, ", screen ", upper - height, " size screen 0.014, screen ", height, "\n");
            plot = text("'/dev/fd/3' binary skip=", store(panel.image_.data), " array=(", columns, ',', rows,
                        ") format='%float' origin=(", panel.x_.from + dx / 2, ',', panel.y_.from + dy / 2, ") dx=", dx,
                        " dy=", dy, " with image notitle");
        }
        for (const Panel::Curve& curve : panel.curves_) {
            const std::size_t columns = (curve.columns.size() + 1) / 2;
            std::string format;
            for (std::size_t n = 0; n < columns; ++n) format += "%double";
            plot += text(plot.empty() ? "" : ", ", "'/dev/fd/3' binary skip=", store(curve.data),
                         " record=", curve.data.size() / columns, " format='", format, "' using ", curve.columns, ' ',
                         curve.style);
        }
        all += text("plot ", plot, "\nunset label\nunset object\nset termoption noenhanced\n");
        upper -= height + gap;
    }
    all += "unset multiplot\n";
    script.write(all.data(), all.size());
    runGnuplot(script, data, picture);
    stopIfInterrupted();
    const std::string bytes = picture.contents();
    file.write(bytes.data(), bytes.size());
    file.close();
}
