#pragma once

#include <memory>

#include <qvui/platform/cstring.h>

namespace DUI {

/// Measures and draws short texts with markup, as tooltips hold them. Tags and attribute names match in any
/// letter case; values may stand in single or double quotes or in none.
///
///     <b> <strong> <i> <em>     bold, italic
///     <u> <s> <strike>          underlined, struck out
///     <font color="">           "#RRGGBB", "rgb(r,g,b)", a colour of the skin or one of the sixteen basic
///                               names
///     <font size="">            the em size in pixels (8 to 96), a step 1 to 7 (3 is 16 pixels), or "+N" and
///                               "-N" for pixels more and less than around it
///     <font face="">            a font's name
///     <br>                      a new line, as a line break in the text is
///     <center>                  a centred part, on lines of its own
///     <hr>                      a line across
///     <img src="" index="">     an icon (the first without an index) of one of the skin's images; a missing
///                               one takes no room
///     <ind=N>                   goes on N pixels from the left (at most half of the width); lines into which
///                               the text wraps begin there, too
///     &lt; &gt; &amp; &quot; &apos; &nbsp; &#N; &#xN;
///
/// Anything else, including unknown or unterminated tags, is text and is shown unchanged. Spaces are
/// preserved. Tags that are not closed end with the text, end tags without a start tag are ignored, and tags
/// may overlap.
class QVUI_API CPPHtmlDrawer {
public:
    /// The maximum width and height, in pixels, of the layout; longer text is cut off.
    static constexpr int kLargestExtent = 32767;

    CPPHtmlDrawer();
    CPPHtmlDrawer(const CPPHtmlDrawer&) = delete;
    CPPHtmlDrawer& operator=(const CPPHtmlDrawer&) = delete;
    ~CPPHtmlDrawer();

    void SetText(const CString& markup);
    /// The font of text without tags, which is copied. Null, the default: the skin's default font, or the
    /// system's while there is no skin.
    void SetFont(HFONT font);
    /// The colour of text without tags; initially black.
    void SetTextColor(COLORREF color);

    /// Returns the size of the text in lines of at most `maxWidth` pixels; only a single character or image
    /// that is wider can exceed this. Lines that begin below `maxHeight` are omitted. `hdc` may be null for
    /// the screen's.
    SIZE Measure(HDC hdc, int maxWidth, int maxHeight = kLargestExtent);
    /// Draws into a rectangle and clips to it. Reuses the lines of the last Measure if they fit the
    /// rectangle's width. Restores the context's state.
    void Draw(HDC hdc, const RECT& rect);

    /// Returns markup that displays exactly the given text.
    static CString Escape(const CString& text);

private:
    class Impl;
    std::unique_ptr<Impl> m_pImpl;
};

}  // namespace DUI
