// What converting is measured against: it reads an exchange file line by line, writes the bytes of
// the account that belongs to it, and does nothing else.

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 4) {
        return 2;
    }
    FILE* pIn = fopen(argv[1], "rb");
    FILE* pAccount = fopen(argv[2], "rb");
    FILE* pOut = fopen(argv[3], "wb");
    if (pIn == nullptr || pAccount == nullptr || pOut == nullptr) {
        return 1;
    }
    char szLine[1024];
    size_t uLines = 0;
    while (fgets(szLine, sizeof szLine, pIn) != nullptr) {
        ++uLines;
    }
    // About as much as an entry has.
    char aEntry[128];
    for (size_t uRead; (uRead = fread(aEntry, 1, sizeof aEntry, pAccount)) > 0;) {
        fwrite(aEntry, 1, uRead, pOut);
    }
    return fclose(pOut) == 0 && uLines > 0 ? 0 : 1;
}
