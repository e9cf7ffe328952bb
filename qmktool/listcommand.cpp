#include <algorithm>
#include <cstdio>

#include "account/qmdocument.h"
#include "account/qmmoney.h"
#include "qmktool/commands.h"
#include "qmktool/jsonwriter.h"
#include "qmktool/listing.h"
#include "qmktool/terminal.h"
#include "qmktool/toolaccount.h"
#include "qmktool/toolprogress.h"
#include "register/qmregistermodel.h"
#include "register/qmrowtable.h"

namespace {

// The columns of a listing: all of them, whatever columns the account shows in the program.
constexpr QMColumn aListed[] = {
    QM_ENTRY_DATE,    QM_ENTRY_NUMBER, QM_ENTRY_DESCRIPTION, QM_ENTRY_DEBIT,    QM_ENTRY_CREDIT,
    QM_ENTRY_BALANCE, QM_ENTRY_TAG,    QM_ENTRY_MEMO,        QM_ENTRY_CATEGORY,
};

// What makes a terminal write red, and as before.
constexpr char szRed[] = "\x1b[31m";
constexpr char szPlain[] = "\x1b[0m";

bool IsNegative(std::string_view text)
{
    return text.find('-') != std::string_view::npos;
}

constexpr int32_t lRowsPerStep = 256; // so often a progress is told of rows

// Rows that tell a progress when they are filled.
class WatchedRows : public QMRowTable
{
public:
    explicit WatchedRows(QMProgress& progress) : m_progress(progress) {}

    // Comes last in each row.
    bool SetDecoration(int32_t lRow, uint32_t uDecoration) override
    {
        if (lRow % lRowsPerStep == 0) {
            m_progress.OnStep(static_cast<uint64_t>(lRow), static_cast<uint64_t>(GetRowCount()));
        }
        return QMRowTable::SetDecoration(lRow, uDecoration);
    }

private:
    QMProgress& m_progress;
};

// Listing: the register of an account as the window would show it, with every column.
class Listing
{
public:
    // The progress is told of the walks over the rows, and must last as long as they do. The first
    // walk is done here; of the text table, the second measures the columns.
    Listing(std::unique_ptr<QMAccount> pAccount, const ToolOptions& options, ToolProgress& progress)
        : m_progress(progress),
          m_uWalks(options.bCsv || options.bJson ? 2 : 3),
          m_filling(&progress, 0, m_uWalks),
          m_rows(m_filling),
          m_model(m_document, m_rows)
    {
        for (int32_t i = 0; i < QM_ENTRY_FILLER; ++i) {
            pAccount->header.*QMGetColumnInfo(static_cast<QMColumn>(i)).pShown = 1;
        }
        m_document.SetAccount(std::move(pAccount));
        m_model.SetIncludeUncleared(!options.bClearedBalance);
        if (options.bFrom || options.bTo) {
            QMDate dtFrom = options.dtFrom;
            QMDate dtTo = options.dtTo;
            m_model.SetPeriodFilter(true, false);
            m_model.SetPeriod(QM_ACCNT_DISPLAY_DATE_RANGE, dtFrom, dtTo, false);
        }
        m_bReady = m_model.RebuildRows(true) && m_model.RefreshRows(0, QM_COLUMN_ALL, false);
        m_lEnd = m_rows.GetRowCount();
        if (options.lLimit >= 0) {
            m_lEnd = std::min(m_lEnd, options.lLimit);
        } else if (options.lLast >= 0) {
            m_lBegin = std::max(m_lEnd - options.lLast, 0);
        }
    }

    bool IsReady() const { return m_bReady; }
    const QMRegisterModel& GetModel() const { return m_model; }
    const QMAccount& GetAccount() const { return *m_document.GetAccount(); }
    uint32_t GetDecoration(int32_t lRow) const { return m_rows.GetDecoration(lRow); }

    // Calls f(row, transaction) for each row, from the first on.
    template <class F>
    void ForEachRow(F f)
    {
        QMProgressPart walk(&m_progress, ++m_uWalk, m_uWalks);
        QMTransactionStore& store = m_document.GetAccount()->store;
        store.MoveTo(m_model.GetFirstShown() + m_lBegin);
        for (int32_t lRow = m_lBegin; lRow < m_lEnd; ++lRow, store.Next()) {
            if (lRow % lRowsPerStep == 0) {
                walk.OnStep(static_cast<uint64_t>(lRow - m_lBegin),
                            static_cast<uint64_t>(m_lEnd - m_lBegin));
            }
            f(lRow, *store.GetCurrentNode());
        }
    }

    // To be called before the first row is written. Where a person sees the rows, or a pager shows
    // them, the line of the progress would stand among them.
    void BeginOutput()
    {
        if (!IsFile(stdout)) {
            m_progress.End();
        }
    }

    // The text of a cell, valid until the next call. The tag column, which shows marks in the
    // program, has its letters here.
    std::string_view GetText(int32_t lRow, QMColumn column, const QMTransaction& transaction)
    {
        if (column != QM_ENTRY_TAG) {
            return m_rows.GetCellText(lRow, m_model.GetColumns().GetListIndex(column));
        }
        const int32_t lLength = transaction.FormatField(QM_FIELD_TAG, m_szTag, false, 0);
        return {m_szTag, static_cast<size_t>(std::max(lLength, 0))};
    }

private:
    ToolProgress& m_progress;
    uint64_t m_uWalks;
    uint64_t m_uWalk = 0; // the last one
    QMProgressPart m_filling;
    QMDocument m_document;
    WatchedRows m_rows;
    QMRegisterModel m_model;
    bool m_bReady = false;
    int32_t m_lBegin = 0; // rows to show
    int32_t m_lEnd = 0;
    char m_szTag[QM_FIELD_TEXT_SIZE];
};

void WriteRow(JsonWriter& json, Listing& listing, int32_t lRow, const QMTransaction& transaction)
{
    json.BreakLine();
    json.BeginObject();
    json.Name("position");
    json.Integer(listing.GetModel().GetFirstShown() + lRow);
    json.Name("lType");
    json.Integer(transaction.lType);
    json.Name("dtDate");
    json.Date(transaction.dtDate);
    json.Name("lNumber");
    json.Integer(transaction.lNumber);
    json.Name("fAmount");
    json.Single(transaction.fAmount);
    json.Name("lFlags");
    json.Integer(transaction.lFlags);
    json.Name("dtCleared");
    json.Date(transaction.dtCleared);
    json.Name("szDescription");
    json.Text(transaction.szDescription);
    json.Name("szMemo");
    json.Text(transaction.szMemo);
    json.Name("szCategory");
    json.Text(transaction.szCategory);
    json.Name("decoration");
    json.Integer(listing.GetDecoration(lRow));
    json.Name("columns");
    json.BeginObject();
    for (const QMColumn column : aListed) {
        json.Name(QMGetColumnInfo(column).szName);
        json.Text(listing.GetText(lRow, column, transaction));
    }
    json.EndObject();
    json.EndObject();
}

void WriteJson(Output& output, Listing& listing, bool bCharacters)
{
    listing.BeginOutput();
    const QMRegisterModel& model = listing.GetModel();
    JsonWriter json(output, bCharacters);
    json.BeginObject();
    json.Name("version");
    json.Integer(listing.GetAccount().lVersion);
    json.Name("count");
    json.Integer(listing.GetAccount().store.GetCount());
    json.Name("lFirstShown");
    json.Integer(model.GetFirstShown());
    json.Name("dBalance");
    json.Double(model.GetBalance(false));
    json.Name("dAvailable");
    json.Double(model.GetBalance(true));
    json.Name("rows");
    json.BeginArray();
    listing.ForEachRow([&](int32_t lRow, const QMTransaction& transaction) {
        WriteRow(json, listing, lRow, transaction);
    });
    json.EndArray();
    json.EndObject();
    output.Add('\n');
}

void WriteCsvCell(Output& output, std::string_view text)
{
    const size_t uFirst = text.find_first_not_of(' ');
    text.remove_prefix(uFirst == std::string_view::npos ? text.size() : uFirst);
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        output.AddText(text);
        return;
    }
    output.Add('"');
    for (size_t uQuote = 0; (uQuote = text.find('"')) != std::string_view::npos;) {
        output.AddText(text.substr(0, uQuote + 1));
        output.Add('"');
        text.remove_prefix(uQuote + 1);
    }
    output.AddText(text);
    output.Add('"');
}

// As RFC 4180 says, with the whole year, and with the type in a column of its own.
void WriteCsv(Output& output, Listing& listing)
{
    UseBytes(stdout);
    listing.BeginOutput();
    output.Add("Date,Number,Type,Description,Debit,Credit,Balance,Tag,Memo,Category\r\n");
    listing.ForEachRow([&](int32_t lRow, const QMTransaction& transaction) {
        const QMDate& date = transaction.dtDate;
        output.Format("%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
        for (const QMColumn column : aListed) {
            if (column == QM_ENTRY_DATE) {
                continue;
            }
            output.Add(',');
            if (column == QM_ENTRY_DESCRIPTION) {
                WriteCsvCell(output, QMTypeLabel(transaction.lType));
                output.Add(',');
                WriteCsvCell(output, transaction.szDescription);
            } else {
                WriteCsvCell(output, listing.GetText(lRow, column, transaction));
            }
        }
        output.Add("\r\n");
    });
}

// TextTable: lines of cells under headings. Each column is as wide as its widest cell.
class TextTable
{
public:
    TextTable(Output& output, Listing& listing)
        : m_output(output), m_listing(listing), m_bColours(TakesColours(stdout))
    {
        for (const QMColumn column : aListed) {
            m_aWidth[column] = std::string_view(QMGetColumnInfo(column).szName).size();
        }
        m_listing.ForEachRow([&](int32_t lRow, const QMTransaction& transaction) {
            for (const QMColumn column : aListed) {
                const size_t uColumns =
                    m_output.ColumnsOf(m_listing.GetText(lRow, column, transaction));
                m_aWidth[column] = std::max(m_aWidth[column], uColumns);
            }
        });
    }

    void Write()
    {
        m_listing.BeginOutput();
        WriteLine([](QMColumn column) { return QMGetColumnInfo(column).szName; });
        m_listing.ForEachRow([&](int32_t lRow, const QMTransaction& transaction) {
            WriteLine(
                [&](QMColumn column) { return m_listing.GetText(lRow, column, transaction); });
        });
    }

private:
    template <class F>
    void WriteLine(F textOf)
    {
        size_t uPending = 0; // blanks that are written only when a text follows
        for (const QMColumn column : aListed) {
            const std::string_view text = textOf(column);
            const size_t uBlanks = m_aWidth[column] - m_output.ColumnsOf(text);
            const bool bRight = QMGetColumnInfo(column).alignment == QMAlignment::Right;
            uPending += bRight ? uBlanks : 0;
            if (!text.empty()) {
                m_output.Fill(uPending, ' ');
                AddCell(column, text);
                uPending = 0;
            }
            uPending += (bRight ? 0 : uBlanks) + 2;
        }
        m_output.Add('\n');
    }

    void AddCell(QMColumn column, std::string_view text)
    {
        const bool bRed = m_bColours && column == QM_ENTRY_BALANCE && IsNegative(text);
        m_output.Add(bRed ? szRed : "");
        m_output.AddShown(text);
        m_output.Add(bRed ? szPlain : "");
    }

    Output& m_output;
    Listing& m_listing;
    bool m_bColours;
    size_t m_aWidth[QM_ENTRY_COUNT] = {};
};

void WriteText(Output& output, Listing& listing)
{
    TextTable(output, listing).Write();
    const bool bColours = TakesColours(stdout);
    char szAmount[400];
    for (const bool bAvailable : {false, true}) {
        QMFormatMoney(listing.GetModel().GetBalance(bAvailable), 0, szAmount, sizeof szAmount);
        const bool bRed = bColours && IsNegative(szAmount);
        output.Format("%s %s%s%s\n", bAvailable ? "Available:" : "Balance:  ", bRed ? szRed : "",
                      szAmount, bRed ? szPlain : "");
    }
}

// Returns false when memory ran out.
bool WriteListing(Output& output, std::unique_ptr<QMAccount> pAccount, const ToolOptions& options)
{
    ToolProgress progress("listing", 1, "rows");
    Listing& listing =
        KeepUntilExit(std::make_unique<Listing>(std::move(pAccount), options, progress));
    if (!listing.IsReady()) {
        return false;
    }
    if (options.bCsv) {
        WriteCsv(output, listing);
    } else if (options.bJson) {
        WriteJson(output, listing, options.bEncoding);
    } else {
        WriteText(output, listing);
    }
    return true;
}

} // namespace

void WriteStore(Output& output, QMTransactionStore& store)
{
    if (store.IsEmpty()) {
        return;
    }
    auto pAccount = std::make_unique<QMAccount>("");
    pAccount->store.TakeFrom(store);
    ToolProgress progress("listing", 1, "rows");
    Listing& listing =
        KeepUntilExit(std::make_unique<Listing>(std::move(pAccount), ToolOptions(), progress));
    if (listing.IsReady()) {
        TextTable(output, listing).Write();
    }
}

int RunList(const ToolOptions& options)
{
    QMReadReport report;
    auto pAccount = OpenToolAccount(options.aFiles[0], options, report);
    if (pAccount == nullptr) {
        return QM_EXIT_REFUSED;
    }
    Output output(options.encoding);
    return WriteListing(output, std::move(pAccount), options)
               ? output.Finish()
               : RefuseFile("list", options.aFiles[0], "there is not enough memory");
}
