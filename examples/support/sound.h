// Sound files: a block of frames at a time, or a whole recording as one channel.
#pragma once

#include "output_file.h"

#include <filesystem>
#include <memory>
#include <sndfile.h>
#include <span>
#include <string>
#include <vector>

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundHandle = std::unique_ptr<SNDFILE, CloseSound>;

class SoundReader {
public:
    explicit SoundReader(const std::filesystem::path& path);

    int rate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    int format() const { return info_.format; }
    sf_count_t frames() const { return info_.frames; } // as the file says
    bool cutShort() const { return cutShort_; }        // its header promises more than it holds

    // Fills the front of a block and returns the number of frames; 0 at the end of the sound.
    std::size_t read(std::vector<float>& block);

private:
    std::filesystem::path path_;
    SF_INFO info_{};
    SoundHandle file_;
    sf_count_t done_ = 0;
    bool cutShort_ = false;
};

class SoundWriter {
public:
    // In the format given, or else as WAV with 32-bit floats.
    SoundWriter(const std::filesystem::path& path, int format, int rate, int channels);

    void write(const std::vector<float>& block, std::size_t frames);
    void close();
    // Everything at once, one channel.
    void writeAll(const std::vector<float>& samples) {
        write(samples, samples.size());
        close();
    }
    void commit() { output_.commit(); }

    const std::filesystem::path& place() const { return output_.place(); } // where it lies until it has its name
    bool asWavFloat() const { return fellBack_; }
    std::size_t clipped() const { return clipped_; } // samples beyond what an integer format holds

private:
    OutputFile output_;
    SF_INFO info_{};
    SoundHandle file_;
    bool fellBack_ = false;
    std::size_t clipped_ = 0;
};

constexpr std::size_t blockFrames = 8192;

// A block of frames by channels, one behind the other, blockFrames apart unless told.
class Channels {
public:
    explicit Channels(int count, std::size_t room = blockFrames)
        : count_(static_cast<std::size_t>(count)), room_(room), samples_(count_ * room) {}
    std::span<float> operator[](std::size_t channel) { return {&samples_[channel * room_], room_}; }
    std::size_t count() const { return count_; }

    void split(const std::vector<float>& interleaved, std::size_t frames);
    void join(std::size_t first, std::size_t frames, std::vector<float>& interleaved);

private:
    std::size_t count_, room_;
    std::vector<float> samples_;
};

// A whole recording, the mean of its channels.
struct Recording {
    int rate = 0, format = 0;
    std::vector<float> samples;
};
Recording readRecording(const std::filesystem::path& path);

// 16-bit WAV, one channel: what the programs make for themselves.
constexpr int madeFormat = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

// "9.5 s, 48000 Hz, 2 channels"
std::string describe(double seconds, int rate, int channels);

// What there is to say to the user of a file that was written.
void noteTroubles(const SoundWriter& output);

// The format for a file of this name: that of its ending, with the encoding of `format` where it has that; `format`
// itself where there is no ending or it is the input's.
int formatFor(const std::filesystem::path& output, const std::filesystem::path& input, int format);
