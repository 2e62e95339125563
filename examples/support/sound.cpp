#include "sound.h"
#include "program.h"
#include "trouble.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <strings.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

OutputFile& outputOf(void* user) {
    return *static_cast<OutputFile*>(user);
}

// libsndfile writes through these, so that no failed write goes unseen.
SF_VIRTUAL_IO writeThrough = {
    .get_filelen = [](void* user) -> sf_count_t { return outputOf(user).size(); },
    .seek = [](sf_count_t offset, int whence, void* user) -> sf_count_t { return outputOf(user).seek(offset, whence); },
    .read = [](void* data, sf_count_t count, void* user) -> sf_count_t {
        return outputOf(user).read(data, static_cast<std::size_t>(count));
    },
    .write = [](const void* data, sf_count_t count, void* user) -> sf_count_t {
        return outputOf(user).write(data, static_cast<std::size_t>(count)) ? count : 0;
    },
    .tell = [](void* user) -> sf_count_t { return outputOf(user).seek(0, SEEK_CUR); },
};

SF_INFO soundInfo(int format, int rate, int channels) {
    SF_INFO info{};
    info.format = format;
    info.samplerate = rate;
    info.channels = channels;
    return info;
}

bool holdsFloats(int format) {
    const int encoding = format & SF_FORMAT_SUBMASK;
    return encoding == SF_FORMAT_FLOAT || encoding == SF_FORMAT_DOUBLE;
}

// A WAV file whose recorder was stopped before it could write the true length: libsndfile reads what is there and tells
// so in its log only.
bool promisesMore(SNDFILE* file) {
    std::array<char, 4096> log{};
    sf_command(file, SFC_GET_LOG_INFO, log.data(), static_cast<int>(log.size()));
    std::istringstream lines(log.data());
    for (std::string line; std::getline(lines, line);)
        if (line.find("data :") != line.npos && line.find("should be") != line.npos) return true;
    return false;
}

} // namespace

SoundReader::SoundReader(const fs::path& path) : path_(path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) throw Trouble(text("there is no file ", printable(path), "; check the name"));
    if (fs::is_directory(status)) throw Trouble(text(printable(path), " is a folder; give a sound file"));
    if (access(path.c_str(), R_OK) != 0)
        throw Trouble(text(printable(path), " may not be read; change its permissions or copy it"));
    if (fs::is_regular_file(status) && fs::file_size(path, error) == 0)
        throw Trouble(text(printable(path), " is empty; give a file with sound in it"));
    file_.reset(sf_open(path.c_str(), SFM_READ, &info_));
    if (!file_)
        throw Trouble(text(printable(path), " is damaged or no sound file that libsndfile knows (",
                           printable(sf_strerror(nullptr)), "); give another one"));
    if (info_.frames == 0) throw Trouble(text(printable(path), " holds no sound; give a file with sound in it"));
    cutShort_ = promisesMore(file_.get());
}

std::size_t SoundReader::read(std::vector<float>& block) {
    const auto capacity = static_cast<sf_count_t>(block.size()) / channels();
    const sf_count_t frames = sf_readf_float(file_.get(), block.data(), capacity);
    const double second = static_cast<double>(done_ + frames) / rate();
    if (sf_error(file_.get()) != SF_ERR_NO_ERROR)
        throw Trouble(text(printable(path_), " is damaged at second ", second, " (",
                           printable(sf_strerror(file_.get())), "); repair it or give another file"));
    if (frames == 0 && sf_seek(file_.get(), 0, SEEK_CUR) >= 0 && done_ < info_.frames)
        throw Trouble(text(printable(path_), " is damaged: it breaks off at second ", second, " of ",
                           static_cast<double>(info_.frames) / rate(), "; repair it or give another file"));
    const auto end = block.begin() + frames * channels();
    if (!std::all_of(block.begin(), end, [](float sample) { return std::isfinite(sample); }))
        throw Trouble(text(printable(path_), " is damaged: before second ", second,
                           " it holds a sample that is no number; repair it or give another file"));
    done_ += frames;
    return static_cast<std::size_t>(frames);
}

SoundWriter::SoundWriter(const fs::path& path, int format, int rate, int channels)
    : output_(path), info_(soundInfo(format, rate, channels)) {
    if (sf_format_check(&info_)) file_.reset(sf_open_virtual(&writeThrough, SFM_WRITE, &info_, &output_));
    if (!file_ && !output_.failed()) {
        fellBack_ = true;
        output_.seek(0, SEEK_SET);
        info_ = soundInfo(SF_FORMAT_WAV | SF_FORMAT_FLOAT, rate, channels);
        file_.reset(sf_open_virtual(&writeThrough, SFM_WRITE, &info_, &output_));
    }
    if (output_.failed()) output_.fail();
    if (!file_) throw Trouble(text("cannot write ", printable(path), " (", printable(sf_strerror(nullptr)), ")"));
    sf_command(file_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

void SoundWriter::write(const std::vector<float>& block, std::size_t frames) {
    const std::size_t count = frames * static_cast<std::size_t>(info_.channels);
    if (!holdsFloats(info_.format))
        clipped_ +=
            static_cast<std::size_t>(std::count_if(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count),
                                                   [](float sample) { return std::fabs(sample) > 1.0f; }));
    const auto wanted = static_cast<sf_count_t>(frames);
    const bool good = sf_writef_float(file_.get(), block.data(), wanted) == wanted;
    if (output_.failed()) output_.fail();
    if (!good)
        throw Trouble(
            text("cannot write ", printable(output_.target()), " (", printable(sf_strerror(file_.get())), ")"));
}

void SoundWriter::close() {
    const int error = sf_close(file_.release());
    output_.close();
    if (error != SF_ERR_NO_ERROR)
        throw Trouble(text("cannot write ", printable(output_.target()), " (", printable(sf_error_number(error)), ")"));
}

void Channels::split(const std::vector<float>& interleaved, std::size_t frames) {
    for (std::size_t channel = 0; channel < count_; ++channel)
        for (std::size_t n = 0; n < frames; ++n) (*this)[channel][n] = interleaved[n * count_ + channel];
}

void Channels::join(std::size_t first, std::size_t frames, std::vector<float>& interleaved) {
    for (std::size_t channel = 0; channel < count_; ++channel)
        for (std::size_t n = 0; n < frames; ++n) interleaved[n * count_ + channel] = (*this)[channel][first + n];
}

Recording readRecording(const fs::path& path) {
    SoundReader reader(path);
    Recording recording{reader.rate(), reader.format(), {}};
    const auto channels = static_cast<std::size_t>(reader.channels());
    std::vector<float> block(channels * blockFrames);
    while (const std::size_t frames = reader.read(block)) {
        stopIfInterrupted();
        for (std::size_t n = 0; n < frames; ++n) {
            const auto first = block.begin() + static_cast<std::ptrdiff_t>(n * channels);
            recording.samples.push_back(std::accumulate(first, first + reader.channels(), 0.0f) /
                                        static_cast<float>(channels));
        }
        if (recording.samples.size() > std::size_t{1} << 30)
            throw Trouble(text(printable(path), " is longer than 2^30 samples; give a part of it"));
    }
    if (reader.cutShort()) note(text(printable(path), " is shorter than its header says; what is there was taken"));
    return recording;
}

std::string describe(double seconds, int rate, int channels) {
    return text(std::round(seconds * 10) / 10, " s, ", rate, " Hz, ", channels,
                channels == 1 ? " channel" : " channels");
}

void noteTroubles(const SoundWriter& output) {
    if (output.asWavFloat()) note("the input's format cannot be written; the output is WAV with 32-bit floats");
    if (output.clipped() > 0)
        note(text(output.clipped(), " samples were too loud for the output's format and were limited"));
}

int formatFor(const fs::path& output, const fs::path& input, int format) {
    if (strcasecmp(output.extension().c_str(), input.extension().c_str()) == 0) return format;
    std::string ending = output.extension().string();
    for (const auto& [common, known] : {std::pair{".ogg", ".oga"}, {".aif", ".aiff"}, {".mp3", ".m1a"}})
        if (strcasecmp(ending.c_str(), common) == 0) ending = known;
    if (ending.empty()) return format;
    int count = 0;
    sf_command(nullptr, SFC_GET_FORMAT_MAJOR_COUNT, &count, sizeof count);
    for (int n = 0; n < count; ++n) {
        SF_FORMAT_INFO container{};
        container.format = n;
        sf_command(nullptr, SFC_GET_FORMAT_MAJOR, &container, sizeof container);
        if (strcasecmp(container.extension, ending.c_str() + 1) != 0) continue;
        for (const int encoding :
             std::initializer_list<int>{format & SF_FORMAT_SUBMASK, SF_FORMAT_FLOAT, SF_FORMAT_PCM_24, SF_FORMAT_PCM_16,
                                        SF_FORMAT_VORBIS, SF_FORMAT_MPEG_LAYER_III}) {
            const SF_INFO candidate = soundInfo(container.format | encoding, 48000, 1);
            if (sf_format_check(&candidate)) return candidate.format;
        }
    }
    throw Trouble(text(printable(output), ": ", printable(output.extension()),
                       " is no format that can be written; use the ending of the input, .wav, .flac or .ogg"));
}
