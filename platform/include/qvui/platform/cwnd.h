#pragma once

#include <cstddef>

#include <qvui/platform/platform.h>

/// What a class says of itself at run time.
struct QVUI_API CRuntimeClass {
    LPCSTR m_lpszClassName;
    const CRuntimeClass* m_pBaseClass;  // null for a class without base

    /// Whether this is that class or derives from it.
    bool IsDerivedFrom(const CRuntimeClass* base) const;
};

/// A native window as an object. The object owns its window: the window is destroyed with the object, and the
/// object lets go of a window that is destroyed otherwise. All calls belong to the user-interface thread.
///
/// The virtual operations are in the order of their slots.
class QVUI_API CWnd {
public:
    using MessageHandler = LRESULT (CWnd::*)(WPARAM wParam, LPARAM lParam);
    struct MessageEntry {
        UINT message;
        MessageHandler handler;
    };
    /// The messages that a class handles; those that it has no entry for are its base's.
    struct MessageMap {
        const MessageMap* base;
        const MessageEntry* entries;
        std::size_t count;
    };

    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual const MessageMap* GetMessageMap() const;
    /// The window goes without a call of the derived class.
    virtual ~CWnd();
    /// Sees, and may change, what the window is created with; FALSE creates none.
    virtual BOOL PreCreateWindow(CREATESTRUCTA& create);
    /// For a message loop or a filter, before the message is dispatched; TRUE consumes it.
    virtual BOOL PreTranslateMessage(MSG* message);
    /// Every message of the window: the handler of the message map, or Default.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Registers a window class whose windows CWnd objects can create; TRUE when it is there already.
    static BOOL RegisterWindowClass(LPCSTR className, UINT style, HCURSOR cursor);
    /// Makes a window of such a class. `rect` is in the parent's client coordinates, of the screen for a
    /// popup. FALSE when the object has a window or none can be made.
    BOOL CreateEx(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, const RECT& rect, HWND parent,
                  UINT_PTR id);
    /// Takes a window over that something else created, without its messages; FALSE when the object has a
    /// window, and for a window that another object has.
    BOOL Attach(HWND window);
    /// Gives the window up without destroying it; null when there is none.
    HWND Detach();
    BOOL DestroyWindow();
    HWND GetSafeHwnd() const { return m_hWnd; }
    /// The object of a window, or null.
    static CWnd* FromHandlePermanent(HWND window);
    /// Asks the objects of the message's window and its ancestors up to `stop`; TRUE when one consumed it.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    HWND m_hWnd = nullptr;

protected:
    /// What the system does with a message.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};
