#include "journey/picture.h"

#include <fstream>
#include <stdexcept>
#include <vector>

namespace quillet::journey {
namespace {

constexpr WORD bitsPerPixel = 24;

struct Canvas {
  Canvas(int width, int height)
      : screen(GetDC(nullptr)),
        context(CreateCompatibleDC(screen)),
        bitmap(CreateCompatibleBitmap(screen, width, height)),
        before(SelectObject(context, bitmap)) {}
  ~Canvas() {
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    ReleaseDC(nullptr, screen);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC screen;
  HDC context;
  HBITMAP bitmap;
  HGDIOBJ before;
};

template <class T>
void write(std::ofstream& stream, const T& value) {
  stream.write(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

void savePicture(HWND window, const std::string& file) {
  RECT place{};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const Canvas canvas(width, height);
  BitBlt(canvas.context, 0, 0, width, height, canvas.screen, place.left, place.top, SRCCOPY);

  BITMAPINFOHEADER format{};
  format.biSize = sizeof format;
  format.biWidth = width;
  format.biHeight = height;
  format.biPlanes = 1;
  format.biBitCount = bitsPerPixel;
  const auto lineBytes = static_cast<DWORD>((width * bitsPerPixel + 31) / 32 * 4);
  std::vector<char> pixels(lineBytes * static_cast<std::size_t>(height));
  GetDIBits(canvas.context, canvas.bitmap, 0, static_cast<UINT>(height), pixels.data(),
            reinterpret_cast<BITMAPINFO*>(&format), DIB_RGB_COLORS);

  BITMAPFILEHEADER header{};
  header.bfType = 0x4d42;  // "BM"
  header.bfOffBits = sizeof header + sizeof format;
  header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
  std::ofstream stream(file, std::ios::binary);
  write(stream, header);
  write(stream, format);
  stream.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  if (!stream) throw std::runtime_error(file + " cannot be written.");
}

}  // namespace quillet::journey
