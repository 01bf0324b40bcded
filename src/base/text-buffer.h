#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "src/base/cold.h"

namespace torvel {

/// Text that grows at its end, a few bytes at a time: what Torvel text is put together in. It does what a
/// std::string does, but pieces of a few bytes are copied without a call, short texts take no memory of their
/// own, and no NUL stands behind the text.
class TextBuffer {
public:
    TextBuffer() = default;
    explicit TextBuffer(std::string_view text) { append(text); }
    TextBuffer(const TextBuffer& other) { append(other); }
    TextBuffer(TextBuffer&& other) noexcept { take(other); }
    TextBuffer& operator=(const TextBuffer& other) {
        if (this != &other) {
            clear();
            append(other);
        }
        return *this;
    }
    TextBuffer& operator=(TextBuffer&& other) noexcept {
        if (this != &other) {
            release();
            take(other);
        }
        return *this;
    }
    TextBuffer& operator=(std::string_view text) {
        clear();
        append(text);
        return *this;
    }
    ~TextBuffer() { release(); }

    operator std::string_view() const { return {begin_, size()}; }
    std::string toString() const { return std::string(begin_, size()); }
    std::size_t size() const { return static_cast<std::size_t>(end_ - begin_); }
    bool empty() const { return end_ == begin_; }
    const char* data() const { return begin_; }
    char operator[](std::size_t index) const { return begin_[index]; }
    char& operator[](std::size_t index) { return begin_[index]; }
    char& back() { return end_[-1]; }

    /// Makes room for texts of `size` bytes.
    void reserve(std::size_t size) {
        if (size > static_cast<std::size_t>(limit_ - begin_)) {
            grow(size);
        }
    }
    void clear() { end_ = begin_; }
    /// Takes off what stands behind the first `size` bytes.
    void truncate(std::size_t size) { end_ = begin_ + size; }

    /// Throws std::bad_alloc, as everything that appends does.
    void append(std::string_view text) {
        makeRoom(text.size());
        copy(end_, text.data(), text.size());
        end_ += text.size();
    }
    /// The same for a text of a TextStore or of another TextBuffer, behind which some bytes can be read: copied
    /// sixteen bytes at a time, the last ones with what follows.
    void appendStored(std::string_view text) {
        makeRoom(text.size());
        Tail behind(end_);
        behind.appendStored(text);
        endAt(behind);
    }

    /// Writes behind a text for which there is room.
    class Tail {
    public:
        explicit Tail(char* end) : end_(end) {}
        char* end() const { return end_; }
        void append(char c) { *end_++ = c; }
        void append(std::size_t count, char c) {
            // A fixed number of bytes needs no call.
            std::memset(end_, c, spareSize);
            if (count > spareSize) {
                std::memset(end_, c, count);
            }
            end_ += count;
        }
        void appendStored(std::string_view text) {
            const char* from = text.data();
            char* const last = end_ + text.size();
            for (char* to = end_; to < last; to += spareSize, from += spareSize) {
                std::memcpy(to, from, spareSize);
            }
            end_ = last;
        }

    private:
        char* end_;
    };
    /// For who appends several pieces, of `most` bytes altogether at most. They count when they are told by endAt().
    Tail tail(std::size_t most) {
        makeRoom(most);
        return Tail(end_);
    }
    void endAt(const Tail& tail) { end_ = tail.end(); }

    void append(std::size_t count, char c) {
        Tail behind = tail(count);
        behind.append(count, c);
        endAt(behind);
    }
    TextBuffer& operator+=(std::string_view text) {
        append(text);
        return *this;
    }
    TextBuffer& operator+=(char c) {
        makeRoom(1);
        *end_++ = c;
        return *this;
    }
    void insert(std::size_t place, char c) {
        makeRoom(1);
        std::memmove(begin_ + place + 1, begin_ + place, size() - place);
        begin_[place] = c;
        ++end_;
    }

    void erase(std::size_t place) {
        std::memmove(begin_ + place, begin_ + place + 1, size() - place - 1);
        --end_;
    }

    friend TextBuffer operator+(std::string_view front, const TextBuffer& back) {
        TextBuffer joined(front);
        joined += back;
        return joined;
    }
    friend TextBuffer operator+(TextBuffer front, std::string_view back) {
        front += back;
        return front;
    }
    friend TextBuffer operator+(TextBuffer front, const TextBuffer& back) {
        front += back;
        return front;
    }
    friend bool operator==(const TextBuffer& one, std::string_view other) {
        return std::string_view(one) == other;
    }

private:
    void makeRoom(std::size_t count) {
        if (count > static_cast<std::size_t>(limit_ - end_)) [[unlikely]] {
            grow(size() + count);
        }
    }

    /// Copies texts of up to 16 bytes by two words that may overlap, longer ones by a call.
    static void copy(char* to, const char* from, std::size_t count) {
        if (count > 16) {
            std::memcpy(to, from, count);
        } else if (count >= 8) {
            copyEnds<std::uint64_t>(to, from, count);
        } else if (count >= 4) {
            copyEnds<std::uint32_t>(to, from, count);
        } else if (count >= 2) {
            copyEnds<std::uint16_t>(to, from, count);
        } else if (count == 1) {
            *to = *from;
        }
    }
    template <typename Word>
    static void copyEnds(char* to, const char* from, std::size_t count) {
        Word first = 0;
        Word last = 0;
        std::memcpy(&first, from, sizeof first);
        std::memcpy(&last, from + count - sizeof last, sizeof last);
        std::memcpy(to, &first, sizeof first);
        std::memcpy(to + count - sizeof last, &last, sizeof last);
    }

    TORVEL_COLD void grow(std::size_t size);
    bool isInside() const { return begin_ == inside_.data(); }
    void release() {
        if (!isInside()) {
            std::free(begin_);
        }
    }
    /// Takes the text over into an object that holds none.
    void take(TextBuffer& other) noexcept;

    static constexpr std::size_t shortSize = 40;
    /// So many bytes behind the limit can be read and written, but do not count.
    static constexpr std::size_t spareSize = 16;

    /// The room of a short text: first, since the others point into it.
    std::array<char, shortSize + spareSize> inside_;
    char* begin_ = inside_.data();
    char* end_ = inside_.data();
    char* limit_ = inside_.data() + shortSize;
};

/// Appends a number in decimal digits.
void appendNumber(std::uint32_t number, TextBuffer& out);

}  // namespace torvel
