#include "screens/printing.h"

#include "platform/host.h"

#include <QImage>
#include <QWidget>

namespace screens {

void printScreen(QWidget& screen)
{
    const auto image = screen.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const auto* const bytes = image.constBits();
    platform::host().print(
        {image.width(), image.height(), std::vector<std::uint8_t>(bytes, bytes + image.sizeInBytes())});
}

} // namespace screens
