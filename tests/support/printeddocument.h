// What the spooler of the tests printed: see scripts/cups.sh.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A printed page: a picture of it with 96 dots per inch, 0 for black to 255 for white.
struct GrayPage
{
    int nWidth = 0;
    int nHeight = 0;
    std::vector<uint8_t> pixels;

    bool operator==(const GrayPage&) const = default;
};

class PrintedDocument
{
public:
    // Gets the document with this title, which no other document may have. Returns false while it
    // is not printed yet.
    bool Find(const std::string& sTitle);
    // All documents with this title that are printed, those of other tests among them.
    static std::vector<PrintedDocument> FindAll(const std::string& sTitle);

    // No other document has it.
    const std::string& GetName() const { return m_sName; }
    int GetPageCount() const { return m_nPages; }
    // What the driver asked the spooler for; copies that the driver makes itself are more pages.
    int GetCopies() const { return m_nCopies; }
    // The name of its queue.
    std::string GetPrinter() const { return m_sName.substr(m_sName.rfind('-') + 1); }
    // nPage counts from 1. AskForPictures must be called before the document is printed. The
    // running test fails when there is no such picture.
    GrayPage ReadPage(int nPage) const;

    // A title that no other document has: programs of several tests use the spooler at a time, and
    // several of them may have the same process id, each under a Wine of its own.
    static std::string MakeTitle(const std::string& sPrefix);
    // From now on the spooler turns all documents into pictures.
    static void AskForPictures();
    // Whether there is a spooler for the tests.
    static bool HasSpooler();

private:
    std::string m_sName; // its path without an extension
    int m_nPages = 0;
    int m_nCopies = 0;
};

// Stops the spooler, and starts it again at its end. The running test fails when it does not stop
// or start.
class StoppedSpooler
{
public:
    StoppedSpooler() { Set(false); }
    StoppedSpooler(const StoppedSpooler&) = delete;
    StoppedSpooler& operator=(const StoppedSpooler&) = delete;
    ~StoppedSpooler() { Set(true); }

    // Whether the tests have a spooler that they may stop.
    static bool IsPossible();

private:
    static void Set(bool bRuns);
};
