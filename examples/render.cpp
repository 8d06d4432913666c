// render IN.svg OUT.png: paints a drawing at twice its size.
#include <quorin/platform/drawing/CGContext.h>
#include <quorin/svg/DrawingRenderer.h>
#include <quorin/svg/SvgReader.h>

#include <cmath>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace {

std::shared_ptr<const quorin::CGImage> paint(const quorin::Drawing& drawing) {
    const double width = std::ceil(2 * drawing.size.width);
    const double height = std::ceil(2 * drawing.size.height);
    const auto context = quorin::CGContext::createBitmap(static_cast<std::size_t>(width),
                                                         static_cast<std::size_t>(height));
    const quorin::CGRect shown = drawing.viewBox;
    context->scaleBy(width / shown.size.width, height / shown.size.height);
    context->translateBy(-shown.origin.x, -shown.origin.y);
    quorin::render(drawing, *context);
    return context->makeImage();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: render IN.svg OUT.png\n";
        return 2;
    }
    try {
        std::ifstream file(arguments[1]);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        const auto image = paint(quorin::readSvg(text, arguments[1]).drawing);
        image->writePNG(arguments[2]);
        std::cout << arguments[2] << ": " << image->width() << " × " << image->height()
                  << " pixels\n";
    } catch (const std::exception& problem) {
        std::cerr << problem.what() << '\n';
        return 1;
    }
}
