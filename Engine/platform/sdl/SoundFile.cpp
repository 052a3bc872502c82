#include "Engine/platform/sdl/SoundFile.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <string_view>

#include "Engine/core/File.h"

namespace Engine::Platform {

namespace {

constexpr std::size_t max_bytes = 64u << 20;
constexpr int max_channels = 8;
constexpr int min_frequency = 1000;
constexpr int max_frequency = 192000;
constexpr sf_count_t chunk_frames = 4096;

/// How the bytes are got at.
struct sBytes {
    Long size = 0;
    std::function<ULong(void* buffer, ULong size)> read;
    std::function<void(Long place)> seek;  ///< from the start
};

/// One file while the library reads it. No exception may pass through the library: it is kept until the reader is back.
class cSource {
public:
    explicit cSource(sBytes bytes) : m_bytes(std::move(bytes)) {}

    void rethrow() const {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

    static SF_VIRTUAL_IO getOperations() {
        return {.get_filelen = [](void* self) { return sf_count_t{static_cast<cSource*>(self)->m_bytes.size}; },
                .seek = [](sf_count_t offset, int whence,
                           void* self) { return static_cast<cSource*>(self)->seek(offset, whence); },
                .read = [](void* buffer, sf_count_t count,
                           void* self) { return static_cast<cSource*>(self)->read(buffer, count); },
                .write = nullptr,
                .tell = [](void* self) { return sf_count_t{static_cast<cSource*>(self)->m_place}; }};
    }

private:
    sf_count_t seek(sf_count_t offset, int whence) {
        const sf_count_t size = m_bytes.size;
        const sf_count_t base = whence == SEEK_SET ? 0 : whence == SEEK_END ? size : sf_count_t{m_place};
        if (offset < -base || offset > size - base)
            return -1;
        guard([&] {
            m_bytes.seek(static_cast<Long>(base + offset));
            m_place = static_cast<Long>(base + offset);
        });
        return m_place;
    }

    sf_count_t read(void* buffer, sf_count_t count) {
        ULong done = 0;
        guard([&] { done = m_bytes.read(buffer, static_cast<ULong>(std::clamp<sf_count_t>(count, 0, m_bytes.size))); });
        m_place += static_cast<Long>(done);
        return done;
    }

    template <class F>
    void guard(F&& act) {
        if (m_failure)
            return;
        try {
            act();
        } catch (...) {
            m_failure = std::current_exception();
        }
    }

    sBytes m_bytes;
    Long m_place = 0;
    std::exception_ptr m_failure;
};

struct sFileEnd {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

Bool isUsable(const SF_INFO& info) {
    return info.channels >= 1 && info.channels <= max_channels && info.samplerate >= min_frequency &&
           info.samplerate <= max_frequency;
}

/// The number of frames in a head may be anything; what counts is what can be read.
Bool decode(SNDFILE* file, const SF_INFO& info, sPcm& res) {
    const auto channels = static_cast<std::size_t>(info.channels);
    const auto kept = static_cast<std::size_t>(res.channels);
    std::vector<short> chunk(static_cast<std::size_t>(chunk_frames) * channels);
    for (;;) {
        const sf_count_t frames = sf_readf_short(file, chunk.data(), chunk_frames);
        if (frames <= 0)
            return !res.samples.empty();
        if ((res.samples.size() + static_cast<std::size_t>(frames) * kept) * sizeof(short) > max_bytes)
            return false;
        for (std::size_t frame = 0; frame < static_cast<std::size_t>(frames); ++frame)
            res.samples.insert(res.samples.end(), &chunk[frame * channels], &chunk[frame * channels] + kept);
    }
}

/// Only these two formats are ours: none of the library's other readers shall meet the file.
Bool isOggOrWav(const sBytes& bytes) {
    std::array<char, 4> head{};
    bytes.read(head.data(), static_cast<ULong>(head.size()));
    bytes.seek(0);
    const std::string_view text(head.data(), head.size());
    return text == "OggS" || text == "RIFF";
}

Bool readSound(sBytes bytes, sPcm& res) {
    if (bytes.size < 0 || !isOggOrWav(bytes))  // below 0: more bytes than a Long counts
        return false;
    cSource source(std::move(bytes));
    SF_VIRTUAL_IO operations = cSource::getOperations();
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, sFileEnd> file(sf_open_virtual(&operations, SFM_READ, &info, &source));
    source.rethrow();
    if (!file || !isUsable(info))
        return false;
    sf_command(file.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    res = {std::min(info.channels, 2), info.samplerate, {}};
    const Bool is_whole = decode(file.get(), info, res);
    source.rethrow();
    return is_whole;
}

/// A handle of the callbacks, given back at the end.
class cHandle {
public:
    cHandle(const char* name, const sSoundFileCallbacks& callbacks)
        : m_callbacks(callbacks), m_handle(callbacks.open(name)) {}
    ~cHandle() {
        if (m_handle != 0)
            m_callbacks.close(m_handle);
    }
    cHandle(const cHandle&) = delete;
    cHandle& operator=(const cHandle&) = delete;

    Int get() const { return m_handle; }

private:
    const sSoundFileCallbacks& m_callbacks;
    Int m_handle;
};

}  // namespace

Bool readSoundFile(const char* name, const sSoundFileCallbacks& callbacks, sPcm& res) {
    const cHandle handle(name, callbacks);
    if (handle.get() == 0)
        return false;
    const Long size = callbacks.seek(handle.get(), 0, iFile::from_end);
    callbacks.seek(handle.get(), 0, iFile::from_start);
    return readSound({size, [&](void* buffer, ULong count) { return callbacks.read(handle.get(), buffer, count); },
                      [&](Long place) { callbacks.seek(handle.get(), place, iFile::from_start); }},
                     res);
}

Bool readSoundFile(iFile& file, sPcm& res) {
    return readSound(
        {static_cast<Long>(file.getSize()), [&](void* buffer, ULong count) { return file.read(buffer, count); },
         [&](Long place) { file.seek(place, iFile::from_start); }},
        res);
}

}  // namespace Engine::Platform
