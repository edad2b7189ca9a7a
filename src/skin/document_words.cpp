#include <qvui/skin/document_words.h>

#include <iterator>

#include <qvui/render/image_list.h>

namespace DUI {
namespace {

constexpr DocumentWord kSources[] = {
    {"file", static_cast<int>(DocumentSource::File)},
    {"dll", static_cast<int>(DocumentSource::Dll)},
    {"exe", static_cast<int>(DocumentSource::Exe)},
};

constexpr DocumentWord kDrawStyles[] = {
    {"stretch", DRAW_STYLE_STRETCH},
    {"stretch_horz", DRAW_STYLE_STRETCH_HORZ},
    {"stretch_vert", DRAW_STYLE_STRETCH_VERT},
    {"squard", DRAW_STYLE_SQUARD},
    {"tile", DRAW_STYLE_TILE},
};

constexpr DocumentWord kDirections[] = {{"vert", 1}, {"horz", 0}};

constexpr DocumentWord kImagePositions[] = {
    {"left_top", 0}, {"left_bottom", 1}, {"right_bottom", 3}, {"right_top", 2}, {"center", 4},
};

constexpr DocumentWord kTextFormats[] = {
    {"DT_TOP", DT_TOP},
    {"DT_LEFT", DT_LEFT},
    {"DT_CENTER", DT_CENTER},
    {"DT_RIGHT", DT_RIGHT},
    {"DT_VCENTER", DT_VCENTER},
    {"DT_BOTTOM", DT_BOTTOM},
    {"DT_WORDBREAK", DT_WORDBREAK},
    {"DT_SINGLELINE", DT_SINGLELINE},
    {"DT_EXPANDTABS", DT_EXPANDTABS},
    {"DT_TABSTOP", DT_TABSTOP},
    {"DT_NOCLIP", DT_NOCLIP},
    {"DT_EXTERNALLEADING", DT_EXTERNALLEADING},
    {"DT_NOPREFIX", DT_NOPREFIX},
    {"DT_INTERNAL", DT_INTERNAL},
    {"DT_EDITCONTROL", DT_EDITCONTROL},
    {"DT_PATH_ELLIPSIS", DT_PATH_ELLIPSIS},
    {"DT_END_ELLIPSIS", DT_END_ELLIPSIS},
    {"DT_MODIFYSTRING", DT_MODIFYSTRING},
    {"DT_RTLREADING", DT_RTLREADING},
    {"DT_WORD_ELLIPSIS", DT_WORD_ELLIPSIS},
    {"DT_NOFULLWIDTHCHARBREAK", DT_NOFULLWIDTHCHARBREAK},
    {"DT_HIDEPREFIX", DT_HIDEPREFIX},
    {"DT_PREFIXONLY", DT_PREFIXONLY},
};

template <std::size_t Count>
constexpr DocumentWords All(const DocumentWord (&words)[Count])
{
    return {std::begin(words), std::end(words)};
}

}  // namespace

DocumentWords SourceWords()
{
    return All(kSources);
}

DocumentWords DrawStyleWords()
{
    return All(kDrawStyles);
}

DocumentWords DirectionWords()
{
    return All(kDirections);
}

DocumentWords ImagePositionWords()
{
    return All(kImagePositions);
}

DocumentWords TextFormatWords()
{
    return All(kTextFormats);
}

}  // namespace DUI
