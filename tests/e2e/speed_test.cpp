// How long a register takes to come up. The times are printed and never judged.

#include <cstdio>

#include "tests/e2e/e2e_test.h"
#include "tests/e2e/ordinaryheap.h"
#include "tests/e2e/reviewwindow.h"

namespace {

class SpeedTest : public E2ETest
{
protected:
    static double Now()
    {
        LARGE_INTEGER frequency;
        LARGE_INTEGER now;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&now);
        return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
    }

    static void Print(const char* szWhat, const std::string& sAccount, double dSeconds)
    {
        printf("speed: %s, %s: %.0f ms\n", szWhat, sAccount.c_str(), dSeconds * 1000);
        fflush(stdout);
    }

    // Waits until the list of the active document shows this number of rows and its last row can be
    // read.
    void AwaitRegister(int nRows) const
    {
        constexpr int nDescription = 3;
        Await("a register of " + std::to_string(nRows) + " rows", [&] {
            HWND hActive = m_program.GetActiveDocument();
            if (hActive == nullptr || !IsWindowVisible(hActive)) {
                return false;
            }
            const WindowList list(m_program.GetProcess(), Program::GetList(hActive));
            return list.GetRowCount() == nRows && !list.ReadCell(nRows - 1, nDescription).empty();
        });
    }

    void MeasureStart(const std::string& sPath, int nRows, const std::string& sAccount)
    {
        const double dBegin = Now();
        m_program.Start({sPath});
        m_program.AwaitFrame();
        AwaitRegister(nRows);
        Print("from start to register", sAccount, Now() - dBegin);
        m_program.Close();
    }

    // Hands the name of the file to the running program, as a second start would.
    void MeasureHandOver(const std::string& sPath, int nRows, const std::string& sAccount)
    {
        m_program.Open();
        std::string sText = sPath + ",";
        COPYDATASTRUCT data = {2, static_cast<DWORD>(sText.size() + 1), sText.data()};
        const double dBegin = Now();
        SendTo(m_program.GetFrame(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        AwaitRegister(nRows);
        Print("from name to register", sAccount, Now() - dBegin);
        m_program.Close();
    }

    void Measure(const std::string& sPath, int nRows, const std::string& sAccount)
    {
        // In this order: if the program already knew the file, it would open it at its start.
        MeasureHandOver(sPath, nRows, sAccount);
        MeasureStart(sPath, nRows, sAccount);
    }

private:
    OrdinaryHeap m_heap;
};

TEST_F(SpeedTest, Frame)
{
    const double dBegin = Now();
    m_program.Open();
    Print("from start to frame", "no account", Now() - dBegin);
}

TEST_F(SpeedTest, Sample)
{
    Measure(CopySample(), 447, "sample");
}

TEST_F(SpeedTest, TenThousand)
{
    Measure(MakeAccount("large.qmk", 10000), 10000, "10,000 transactions");
}

TEST_F(SpeedTest, HundredThousand)
{
    Measure(MakeAccount("huge.qmk", 100000), 100000, "100,000 transactions");
}

TEST_F(SpeedTest, ImportOfTwentyThousand)
{
    constexpr int nRows = 20000;
    std::string sBytes = "Date,Payee,Amount\n";
    for (int i = 0; i < nRows; ++i) {
        // The dates fall, so that every row goes before the row added last.
        const int nDay = nRows - i;
        sBytes += std::to_string(nDay / 28 % 12 + 1) + "/" + std::to_string(nDay % 28 + 1) + "/" +
                  std::to_string(1950 + nDay / 336) + ",somebody,-" + std::to_string(i) + "\n";
    }
    const std::string sFile = MakeFile("large.csv", sBytes);
    m_program.Open({MakeAccount("large.qmk", 10000)});
    const std::string sText = "-I" + sFile + "|" + PathOf("large.qmk");
    double dBegin = Now();
    Process second;
    second.Start(ProgramFolder() + "quillmark.exe", {sText});
    const ReviewWindow review = AwaitReview(m_program);
    EXPECT_EQ(review.GetList().GetRowCount(), nRows);
    Print("from order to review", "20,000 rows", Now() - dBegin);
    dBegin = Now();
    review.PressBox(IDC_IMPORT_ALL, 0);
    Print("unticking all", "20,000 rows", Now() - dBegin);
    review.PressBox(IDC_IMPORT_ALL, 1);
    dBegin = Now();
    review.End(IDC_IMPORT_IMPORT);
    AwaitMessageBox(m_program.GetId(),
                    "Successfully imported 20000 transactions from file:\n'" + sFile + "'.")
        .Press(IDOK);
    Print("from Import to the result", "20,000 rows", Now() - dBegin);
    AwaitRegister(10000 + nRows);
}

} // namespace
