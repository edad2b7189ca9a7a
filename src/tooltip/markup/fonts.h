#pragma once

#include <map>

#include <qvui/platform/platform.h>

#include "render/dc_scopes.h"
#include "tooltip/markup/line_layout.h"

namespace DUI::html {

/// The fonts that styles call for, made when they are first needed.
class FontSet {
public:
    FontSet() = default;
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;
    ~FontSet() { Clear(); }

    /// What styles change; the fonts made from another base are deleted, so none of them may be selected.
    /// True when it was another one.
    bool SetBase(const LOGFONTA& base);
    /// Borrowed until the base changes. When a text calls for too many fonts it gets the last of them again.
    HFONT Get(const Style& style);

private:
    void Clear();

    LOGFONTA m_base{};
    std::map<Style, HFONT> m_fonts;  // colour and alignment left out
    HFONT m_last = nullptr;
};

/// Measures a document's text in a device context, whose state is as before when it goes.
class ContextRuler : public Ruler {
public:
    ContextRuler(HDC hdc, FontSet& fonts, const Document& document);
    ContextRuler(const ContextRuler&) = delete;
    ContextRuler& operator=(const ContextRuler&) = delete;

    /// Selects a style's font into the context.
    void Select(int style);

    int Width(int style, std::string_view text) override;
    LineMetrics Metrics(int style) override;
    SIZE Image(const std::string& name, int index) override;

private:
    HDC m_hDC;
    SaveScope m_saved;
    FontSet& m_fonts;
    const Document& m_document;
    int m_selected = -1;
    std::map<int, LineMetrics> m_metrics;  // by style
};

}  // namespace DUI::html
