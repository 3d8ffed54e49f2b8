#include "drawing/picture_file.h"

#include "core/text.h"

PaintPictureRoutine* ThePicturePainter = nullptr;

bool FormatOfFile(const std::string& path, PictureFormat& format)
{
    constexpr std::pair<std::string_view, PictureFormat> Endings[] = {
        {".svg", PictureFormat::Svg}, {".png", PictureFormat::Png}, {".pdf", PictureFormat::Pdf}};
    for (const auto& [ending, named] : Endings) {
        if (path.size() <= ending.size() || !EqualsNoCase(LastCharacters(path, ending.size()), ending))
            continue;
        format = named;
        return true;
    }
    return false;
}
