// VApplication: what the whole program shares: its instance, its resource module, its name, its
// window class.
#pragma once

#include <windows.h>

#include <memory>

#include "base/vstring.h"

class VWindow;

class VApplication
{
public:
    VApplication() = default;
    VApplication(const VApplication&) = delete;
    VApplication& operator=(const VApplication&) = delete;

    // Unregisters the window class.
    virtual ~VApplication();
    // Returns the instance that Initialize noted. Without one it asks Windows.
    virtual HINSTANCE GetInstance();
    virtual HINSTANCE GetResourceModule();

    // The name of the window class that Initialize registers, for windows that have no class of
    // their own; "VWindow" when none was set. The text lives as long as the program.
    static const char* GetClassName();
    static void SetClassName(const char* szName);

    // Registers the same window class under another name, once. Returns false when that fails.
    static bool RegisterCopy(const char* szName);

    // Notes the instance and the show command and registers the window class. With a null pRecord
    // the class gets the icon uIconId (0 for that of Windows) and the background colour nBackground
    // (COLOR_... + 1). Otherwise these fill the empty fields of the record.
    bool Initialize(HINSTANCE hInstance, int nShowCommand, UINT uIconId, int nBackground,
                    const WNDCLASSA* pRecord = nullptr);

    const char* GetName() const { return m_sName.GetText(); }
    void SetName(const char* szName) { m_sName = szName; }
    int GetShowCommand() const { return m_nShowCommand; }

private:
    HINSTANCE m_hInstance = nullptr;
    HINSTANCE m_hResourceModule = nullptr;
    int m_nShowCommand = SW_SHOWNORMAL;
    VString m_sName;
    VString m_sRegisteredClass;
    HINSTANCE m_hClassOwner = nullptr;
};

// The application object. It is made at the first call and deleted at the end of the process.
VApplication& GetApplication();

// Makes another object the application object, and gives it to this module. The former one is
// deleted.
void SetApplication(std::unique_ptr<VApplication> pApplication);

// Runs the message loop until WM_QUIT. Each message goes to the window's accelerators first, then
// to its PreTranslate, and then through TranslateMessage and DispatchMessage. Returns the wParam of
// WM_QUIT.
int RunMessageLoop(VWindow& window);
