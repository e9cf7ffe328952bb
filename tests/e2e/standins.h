// What stands in for the programs of the user's machine: a browser, a viewer of help.
#pragma once

#include <windows.h>

#include <string>

// A value without a name below HKEY_CLASSES_ROOT. At the object's end it is as it was before.
class ScopedClass
{
public:
    ScopedClass(const std::string& sKey, const std::string& sText);
    ScopedClass(const ScopedClass&) = delete;
    ScopedClass& operator=(const ScopedClass&) = delete;
    ~ScopedClass();

private:
    std::string m_sKey;
    std::string m_sBefore;
    bool m_bWasKey;
    bool m_bWasValue = false;
};

// The program that opens web pages: the one of that command, which FindBrowser looks for.
class ScopedBrowser
{
public:
    explicit ScopedBrowser(const std::string& sCommand)
        : m_type(".htm", "quillmark.testpage"),
          m_command("quillmark.testpage\\shell\\open\\command", sCommand)
    {}

private:
    ScopedClass m_type;
    ScopedClass m_command;
};

// The viewer of help: this library, by its full path.
class ScopedHelpViewer
{
public:
    explicit ScopedHelpViewer(const std::string& sPath)
        : m_class("CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", sPath)
    {}

private:
    ScopedClass m_class;
};

// Copies a stand-in that lies beside this program, and returns the path of the copy.
std::string CopyStandin(const char* szName, const std::string& sPath);

// What a stand-in wrote into PATH.txt so far; empty while there is nothing.
std::string NotesOf(const std::string& sPath);
