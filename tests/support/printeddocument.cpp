#include "tests/support/printeddocument.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace {

// Empty when there is no spooler.
std::filesystem::path Folder()
{
    const char* szFolder = getenv("QUILLMARK_PRINTED");
    return szFolder == nullptr ? "" : szFolder;
}

// The file that stops the spooler; empty without a spooler that may be stopped.
std::filesystem::path StopFile()
{
    const char* szFile = getenv("QUILLMARK_STOPS_PRINTER");
    return szFile == nullptr ? "" : szFile;
}

} // namespace

bool PrintedDocument::HasSpooler()
{
    return !Folder().empty();
}

std::string PrintedDocument::MakeTitle(const std::string& sPrefix)
{
    std::random_device random;
    return sPrefix + std::to_string(random()) + std::to_string(random() % 1000);
}

void PrintedDocument::AskForPictures()
{
    std::ofstream(Folder() / "pictures");
}

bool PrintedDocument::Find(const std::string& sTitle)
{
    const std::vector<PrintedDocument> documents = FindAll(sTitle);
    if (!documents.empty()) {
        *this = documents.front();
    }
    return !documents.empty();
}

std::vector<PrintedDocument> PrintedDocument::FindAll(const std::string& sTitle)
{
    std::vector<PrintedDocument> documents;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(Folder(), error)) {
        std::ifstream file(entry.path());
        std::string sLine;
        std::string sOptions;
        if (entry.path().extension() != ".txt" || !std::getline(file, sLine) || sLine != sTitle) {
            continue;
        }
        PrintedDocument document;
        if (file >> document.m_nCopies && std::getline(file, sOptions) &&
            std::getline(file, sOptions) && file >> document.m_nPages) {
            document.m_sName = (entry.path().parent_path() / entry.path().stem()).string();
            documents.push_back(document);
        }
    }
    return documents;
}

GrayPage PrintedDocument::ReadPage(int nPage) const
{
    GrayPage page;
    // All page numbers have as many digits as the last one.
    std::string sNumber = std::to_string(nPage);
    sNumber.insert(0, std::to_string(m_nPages).size() - sNumber.size(), '0');
    const std::string sPath = m_sName + "-" + sNumber + ".pgm";
    std::ifstream file(sPath, std::ios::binary);
    std::string sMagic;
    int nLargest = 0;
    file >> sMagic >> page.nWidth >> page.nHeight >> nLargest;
    file.get();
    page.pixels.resize(static_cast<size_t>(page.nWidth) * static_cast<size_t>(page.nHeight));
    file.read(reinterpret_cast<char*>(page.pixels.data()),
              static_cast<std::streamsize>(page.pixels.size()));
    EXPECT_TRUE(file && sMagic == "P5" && nLargest == 255) << sPath;
    return page;
}

bool StoppedSpooler::IsPossible()
{
    return !StopFile().empty();
}

void StoppedSpooler::Set(bool bRuns)
{
    if (bRuns) {
        std::filesystem::remove(StopFile());
    } else {
        const std::ofstream file(StopFile());
    }
    const auto IsRunning = [] { return !std::filesystem::exists(Folder() / "stopped"); };
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (IsRunning() != bRuns && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_EQ(IsRunning(), bRuns) << "the spooler did not stop or start within 60 seconds";
}
