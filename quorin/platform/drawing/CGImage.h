#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

/// An image of this size cannot be made. The message names the size and the limit.
class ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Pixels that do not change any more, shared by pointer. Rows go from top to bottom; a pixel is
/// four bytes, red, green, blue, alpha, the colours multiplied by alpha already.
class CGImage {
    struct Token {};  // keeps the constructor for create()

public:
    using Pixel = std::array<std::uint8_t, 4>;

    static constexpr std::size_t maximumSide = 32'767;
    static constexpr std::size_t maximumPixelCount = std::size_t{1} << 27;

    /// Throws `ImageError` when a side is 0 or too large, or both together are.
    static void requireSize(std::size_t width, std::size_t height);

    /// Takes 4 · width · height bytes. Throws `ImageError`; another number of bytes is the caller's
    /// mistake.
    static std::shared_ptr<const CGImage> create(std::size_t width, std::size_t height,
                                                 std::vector<std::uint8_t> pixels);
    /// Reads a PNG file of any kind. Throws `FileError`, which names the file and the reason, also
    /// for damaged contents and for more pixels than `create` takes.
    static std::shared_ptr<const CGImage> readPNG(const std::string& path);
    /// Reads the contents of a PNG file; `name` stands for the file in a `FileError`.
    static std::shared_ptr<const CGImage> decodePNG(std::string_view bytes,
                                                    const std::string& name = "PNG image");

    CGImage(Token, std::size_t width, std::size_t height, std::vector<std::uint8_t> pixels);

    std::size_t width() const { return _width; }
    std::size_t height() const { return _height; }
    std::span<const std::uint8_t> pixels() const { return _pixels; }
    /// Counted from 0 at the top left.
    Pixel pixelAt(std::size_t x, std::size_t y) const;

    /// The contents of a PNG file, 8 bits a channel. Reading it gives an equal image.
    std::string encodePNG() const;
    /// Puts the PNG file in its place in one step. Throws `FileError`; a file that was there before
    /// is as it was then.
    void writePNG(const std::string& path) const;

    friend bool operator==(const CGImage& a, const CGImage& b) {
        return a._width == b._width && a._pixels == b._pixels;
    }

private:
    std::size_t _width, _height;
    std::vector<std::uint8_t> _pixels;
};

}  // namespace quorin
