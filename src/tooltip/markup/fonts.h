#pragma once

#include <map>

#include <qvui/platform/platform.h>

#include "render/dc_scopes.h"
#include "tooltip/markup/line_layout.h"

namespace DUI::html {

/// The fonts of all styles, created on first use.
class FontSet {
public:
    FontSet() = default;
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;
    ~FontSet() { Clear(); }

    /// Sets the font that styles modify, and deletes the fonts made from another one, none of which may be
    /// selected. Returns whether the base has changed.
    bool SetBase(const LOGFONTA& base);
    /// Not owned; valid until the base changes. Returns the last font created if a text needs too many fonts.
    HFONT Get(const Style& style);

private:
    void Clear();

    LOGFONTA m_base{};
    std::map<Style, HFONT> m_fonts;  // key without colour and alignment
    HFONT m_last = nullptr;
};

/// Measures a document's text in a device context, whose state is restored on destruction.
class ContextRuler : public Ruler {
public:
    ContextRuler(HDC hdc, FontSet& fonts, const Document& document);
    ContextRuler(const ContextRuler&) = delete;
    ContextRuler& operator=(const ContextRuler&) = delete;

    /// Selects the font of a style into the context.
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
