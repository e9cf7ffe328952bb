// What the window tests share: a message loop, a window that notes its calls, a registry key that
// is removed at the end of its scope, and counts of the objects of Windows.
#pragma once

#include <windows.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "toolkit/vwindow.h"

// Handles messages until the condition holds. Returns false when the limit is over before.
bool PumpUntil(const std::function<bool()>& condition, DWORD uLimitMs = 10000);
// Handles the messages in the queue.
void PumpAll();

// Makes the application object for the tests and registers its window class.
bool InitializeApplication();

// The bytes of a VString as a std::string. A failing comparison then prints both texts.
inline std::string Text(const VString& sText)
{
    return {sText.GetText(), sText.GetLength()};
}

// What a VRecordingWindow notes, and what it returns. It must live longer than the window.
struct Record
{
    std::vector<std::string> calls;
    std::set<UINT> watched; // messages to note when they reach DefaultProc

    bool bRefusesPreCreate = false;
    bool bRefusesInitialize = false;
    bool bRefusesClose = false;
    bool bKeepsWindow = false; // OnClose returns true and keeps the window
    bool bDeletesInClose = false;
    bool bPaints = true;
    bool bTranslates = false;
    LRESULT lCommand = V_NOT_HANDLED;
    LRESULT lNotify = V_NOT_HANDLED;
    LRESULT lReflect = V_NOT_HANDLED;
    LRESULT lReflectValue = 0;
    std::function<void(VDrawingSurface&)> paint;
    std::function<void(VWindow&)> command;

    // The calls since the last Take, separated by blanks.
    std::string Take();
};

class VRecordingWindow : public VWindow
{
public:
    explicit VRecordingWindow(Record& record, int32_t lKind = V_KIND_OTHER)
        : VWindow(lKind), m_record(record)
    {}
    ~VRecordingWindow() override { Note("gone"); }

    bool OnClose(bool bForced) override;
    bool PreTranslate(MSG& message) override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    void OnDestroy() override { Note("OnDestroy"); }
    bool OnPaint(VDrawingSurface& surface) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    LRESULT OnNotify(UINT uId, NMHDR* pHeader) override;
    LRESULT OnReflectNotify(NMHDR* pHeader, LRESULT& lResult) override;
    void OnFinalDestroy() override;
    bool OnPreCreate(CREATESTRUCTA& create) override;
    bool OnInitialize() override;

private:
    void Note(const std::string& sCall) { m_record.calls.push_back(sCall); }

    Record& m_record;
};

inline const VRect g_testRect = {10, 10, 210, 110};

// Creates a hidden overlapped window of the toolkit's class. Its creation is not noted.
bool CreateTestWindow(VWindow& window, DWORD uStyle = WS_OVERLAPPEDWINDOW);
bool CreateTestWindow(VRecordingWindow& window, Record& record);

// A key below the Software key of the current user. It is deleted with everything below it at the
// beginning and at the end of the scope.
class ScopedRegistryPath
{
public:
    explicit ScopedRegistryPath(const char* szName);
    ScopedRegistryPath(const ScopedRegistryPath&) = delete;
    ScopedRegistryPath& operator=(const ScopedRegistryPath&) = delete;
    ~ScopedRegistryPath() { Delete(); }

    const char* Get() const { return m_sPath.c_str(); }

private:
    void Delete() const;

    std::string m_sPath;
};

struct ObjectCounts
{
    DWORD uGdi = 0;
    DWORD uUser = 0;

    bool operator==(const ObjectCounts&) const = default;
};

// Counts the objects of this process.
ObjectCounts CountObjects();

// Wine 8 only: destroys the accelerator tables that were made within its scope. Each time Wine's
// file dialog is shown, its folder view keeps one.
class ScopedAcceleratorTables
{
public:
    ScopedAcceleratorTables();
    ScopedAcceleratorTables(const ScopedAcceleratorTables&) = delete;
    ScopedAcceleratorTables& operator=(const ScopedAcceleratorTables&) = delete;
    ~ScopedAcceleratorTables();

private:
    std::set<HACCEL> m_before;
};
