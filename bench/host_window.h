#pragma once

#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>

#include <qvui/framework/window/window_mgr.h>

namespace qvui::bench {

/// A control tree in a shown window of the platform, as an application hosts it.
class HostWindow : public DUI::CDUIWindowMgr {
public:
    HostWindow(SIZE client, const std::string& content)
    {
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = &HostWindow::Procedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "qvui_bench_host";
        RegisterClassExA(&windowClass);
        m_window = CreateWindowExA(0, windowClass.lpszClassName, "", WS_POPUP, 0, 0, client.cx, client.cy,
                                   nullptr, nullptr, windowClass.hInstance, this);
        RECT rect{0, 0, client.cx, client.cy};
        CreateFromXML(("<window>" + content + "</window>").c_str(), m_window, rect);
        InitWindowMgr();
        LayoutRootControl();
        ShowWindow(m_window, SW_SHOW);
        PaintNow();
    }
    ~HostWindow() override { DestroyWindow(m_window); }

    HWND Handle() const { return m_window; }
    /// Dispatches what is pending and paints what is invalid.
    void PaintNow()
    {
        MSG message{};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        UpdateWindow(m_window);
    }
    template <class Control>
    Control& Find(const char* name)
    {
        return *dynamic_cast<Control*>(GetControlByName(name, TRUE));
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NCCREATE)
            SetWindowLongPtrA(
                window, GWLP_USERDATA,
                reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams));
        auto* const host = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        LRESULT result = 0;
        BOOL bHandled = TRUE;
        if (host && message == WM_PAINT)
            return host->OnPaint(message, wParam, lParam, bHandled);
        if (host && message == WM_DESTROY)
            host->FinishWindowMgr();
        else if (host && host->GetHWND() &&
                 host->ProcessWindowMessage(window, message, wParam, lParam, result))
            return result;
        return DefWindowProcA(window, message, wParam, lParam);
    }

    HWND m_window = nullptr;
};

/// Takes the benchmarks' arguments, and lets both sides draw into memory: nobody looks.
inline void DrawIntoMemory(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QVUI_DISPLAY", "headless", 1);
    benchmark::Initialize(&argc, argv);
}

}  // namespace qvui::bench
