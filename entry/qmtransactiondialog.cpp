#include "entry/qmtransactiondialog.h"

#include <algorithm>

#include "account/qmdate_win.h"
#include "resources/resource.h"
#include "toolkit/vmessages.h"

namespace {

constexpr struct
{
    int nId;
    int32_t lType;
} aTypes[] = {
    {IDC_TX_CHECK, QM_TRANS_CHECK},
    {IDC_TX_DEPOSIT, QM_TRANS_DEPOSIT},
    {IDC_TX_WITHDRAWAL, QM_TRANS_WITHDRAWAL},
    {IDC_TX_FEE, QM_TRANS_FEE},
    {IDC_TX_DIRECTDEPOSIT, QM_TRANS_DIRECT_DEPOSIT},
    {IDC_TX_DIRECTDEBIT, QM_TRANS_DIRECT_DEBIT},
    {IDC_TX_ATMDEPOSIT, QM_TRANS_ATM_DEPOSIT},
    {IDC_TX_ATMWITHDRAWAL, QM_TRANS_ATM_WITHDRAWAL},
    {IDC_TX_AUTOMATICPAYMENT, QM_TRANS_AUTOMATIC_PAYMENT},
    {IDC_TX_TRANSFERCREDIT, QM_TRANS_TRANSFER_CREDIT},
    {IDC_TX_TRANSFERDEBIT, QM_TRANS_TRANSFER_DEBIT},
    {IDC_TX_INTEREST, QM_TRANS_INTEREST_PAID},
};

constexpr struct
{
    int nId;
    QMEntryMove move;
} aArrows[] = {
    {IDC_TX_FIRST, QMEntryMove::First},
    {IDC_TX_PREVIOUS, QMEntryMove::Previous},
    {IDC_TX_NEXT, QMEntryMove::Next},
    {IDC_TX_LAST, QMEntryMove::Last},
};

// The most characters that can be typed: one less than the array of the record has, or as many as a
// number needs.
constexpr struct
{
    int nId;
    int nCharacters;
} aLimits[] = {
    {IDC_TX_NUMBER, 10}, {IDC_TX_DESCRIPTION, 255}, {IDC_TX_AMOUNT, 15},
    {IDC_TX_MEMO, 255},  {IDC_TX_CATEGORY, 127},
};

// The control also gives the time of day. Without it, a date is always written to the file as the
// same bytes.
QMDate DateOf(const VDatePicker& picker)
{
    const SYSTEMTIME time = picker.GetDate();
    return QMMakeDate(time.wYear, time.wMonth, time.wDay);
}

// Gives the control a date. One that it refuses is shown as the last day of its month, or else as
// today.
void SetPicker(VDatePicker& picker, const QMDate& date)
{
    constexpr uint16_t wShortestMonth = 28;
    bool bShown = picker.SetDate(QMToSystemTime(date));
    for (uint16_t wDay = std::min<uint16_t>(date.wDay, 32); !bShown && wDay-- > wShortestMonth;) {
        bShown = picker.SetDate(QMToSystemTime(QMMakeDate(date.wYear, date.wMonth, wDay)));
    }
    if (!bShown) {
        picker.SetDate(QMToSystemTime(QMToday()));
    }
}

void FillList(VComboBox& combo, const QMEditList& list)
{
    for (const QMEditItem* pItem = list.First(); pItem != nullptr;
         pItem = QMEditList::Next(pItem)) {
        combo.Add(pItem->GetText());
    }
}

} // namespace

QMDate QMTransactionDialog::DateField::Read()
{
    return m_kept.Read(DateOf(m_picker));
}

void QMTransactionDialog::DateField::Show(const QMDate& date)
{
    // A record's other fields may hold anything, and the control looks at them.
    const QMDate dtDay = QMMakeDate(date.wYear, date.wMonth, date.wDay);
    SetPicker(m_picker, dtDay);
    m_kept.Show(dtDay, DateOf(m_picker));
}

INT_PTR QMTransactionDialog::DoModal(HWND hParent, QMTransactionDialogArgs& args)
{
    if (args.nCount < 1 || args.pTransactions == nullptr) {
        return -1;
    }
    m_pArgs = &args;
    m_entry.emplace(args);
    const INT_PTR nResult = VDialog::DoModal(hParent, IDD_TRANSACTION);
    m_entry.reset();
    m_pArgs = nullptr;
    return nResult;
}

// ---- Start.

bool QMTransactionDialog::OnInitDialog()
{
    if (!AttachControls()) {
        return false;
    }
    FillList(m_cboDescription, m_pArgs->lstDescription);
    FillList(m_cboMemo, m_pArgs->lstMemo);
    FillList(m_cboCategory, m_pArgs->lstCategory);
    // The dialog works without its pictures too, so a missing one is no failure.
    m_pictures.LoadSigns();
    m_pictures.SetButtons(*this, QMEntryPictures::GetLibraryVersion());
    ShowButtons();
    // To add, the date controls keep today, with which Windows makes them.
    ShowFields(m_entry->Begin(), !m_entry->IsAddMode());
    return VDialog::OnInitDialog();
}

bool QMTransactionDialog::AttachControls()
{
    for (const auto& limit : aLimits) {
        LimitItemText(limit.nId, limit.nCharacters);
    }
    for (const auto& type : aTypes) {
        // Without BM_SETDONTCLICK a radio button that gets the focus by a key would be pressed by
        // that.
        SendItem(type.nId, BM_SETDONTCLICK, TRUE);
    }
    return m_cboDescription.Attach(GetItem(IDC_TX_DESCRIPTION)) &&
           m_cboMemo.Attach(GetItem(IDC_TX_MEMO)) &&
           m_cboCategory.Attach(GetItem(IDC_TX_CATEGORY)) &&
           m_dateField.m_picker.Attach(GetItem(IDC_TX_DATE)) &&
           m_clearedField.m_picker.Attach(GetItem(IDC_TX_DATECLEARED));
}

void QMTransactionDialog::ShowButtons()
{
    const bool bAdd = m_entry->IsAddMode();
    SetText(bAdd ? "Add Transaction" : "Edit Transaction");
    EnableItem(IDC_TX_ADD, bAdd);
    ShowItem(IDC_TX_ADD, bAdd);
    for (const auto& arrow : aArrows) {
        ShowItem(arrow.nId, !bAdd);
    }
    EnableArrows();
    if (!bAdd) {
        // Posted, so that it comes after the focus that Windows sets at the end of WM_INITDIALOG.
        Post(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetItem(IDOK)), TRUE);
    }
}

void QMTransactionDialog::EnableArrows()
{
    for (const auto& arrow : aArrows) {
        EnableItem(arrow.nId, m_entry->CanMove(arrow.move));
    }
}

bool QMTransactionDialog::OnPaint(VDrawingSurface& surface)
{
    m_pictures.DrawSigns(surface);
    return true;
}

// ---- What the user does.

LRESULT QMTransactionDialog::OnCommand(UINT uNotifyCode, UINT uId, HWND hControl)
{
    if (uNotifyCode == BN_CLICKED && OnButton(uId)) {
        return 0;
    }
    return VDialog::OnCommand(uNotifyCode, uId, hControl);
}

bool QMTransactionDialog::OnButton(UINT uId)
{
    for (const auto& arrow : aArrows) {
        if (static_cast<UINT>(arrow.nId) == uId) {
            OnMove(arrow.move);
            return true;
        }
    }
    if (uId >= IDC_TX_CHECK && uId <= IDC_TX_INTEREST) {
        OnType();
    } else if (uId >= IDC_TX_TAX && uId <= IDC_TX_CLEARED) {
        OnBox();
    } else if (uId == IDC_TX_ADD) {
        OnAdd();
    } else {
        return false;
    }
    return true;
}

void QMTransactionDialog::OnType()
{
    QMEntryFields fields = ReadFields();
    m_entry->ApplyType(fields);
    ShowTypeFields(fields);
}

void QMTransactionDialog::OnBox()
{
    QMEntryBoxes boxes = ReadBoxes();
    m_entry->ApplyBoxes(boxes);
    ShowBoxes(boxes);
}

void QMTransactionDialog::OnAdd()
{
    if (m_entry->IsAddMode() && Accept() && m_entry->Commit()) {
        ShowFields(m_entry->BeginNext(), true);
        FocusItem(IDC_TX_DESCRIPTION);
    }
}

bool QMTransactionDialog::OnOK()
{
    return Accept() && m_entry->Commit();
}

void QMTransactionDialog::OnMove(QMEntryMove move)
{
    if (!m_entry->IsAddMode() && Accept()) {
        ShowFields(m_entry->Move(move), true);
        EnableArrows();
        FocusItem(IDOK);
    }
}

bool QMTransactionDialog::Accept()
{
    const char* szFault = m_entry->Accept(ReadFields());
    if (szFault != nullptr) {
        MessageBox(GetHandle(), szFault, MB_OK | MB_ICONINFORMATION);
        FocusFault();
    }
    return szFault == nullptr;
}

// Puts the focus on the field that the sentence was about, with its text selected.
void QMTransactionDialog::FocusFault()
{
    // In the order in which sentences are chosen; a check number can be wrong in a check alone.
    constexpr struct
    {
        uint32_t uFaults;
        int nControl;
    } aFields[] = {
        {QM_FAULT_NUMBER, IDC_TX_NUMBER},
        {QM_FAULT_MONTH | QM_FAULT_DAY | QM_FAULT_YEAR, IDC_TX_DATE},
        {QM_FAULT_DESCRIPTION, IDC_TX_DESCRIPTION},
        {QM_FAULT_AMOUNT, IDC_TX_AMOUNT},
        {QM_FAULT_MEMO, IDC_TX_MEMO},
    };
    for (const auto& field : aFields) {
        if ((m_entry->GetFaults() & field.uFaults) != 0) {
            if (IsWindowEnabled(GetItem(field.nControl))) {
                FocusItem(field.nControl);
            }
            return;
        }
    }
}

LRESULT QMTransactionDialog::OnNotify(UINT uId, NMHDR* pHeader)
{
    if (pHeader->code == DTN_DATETIMECHANGE) {
        OnDateChange(uId);
        return 0;
    }
    return VDialog::OnNotify(uId, pHeader);
}

void QMTransactionDialog::OnDateChange(UINT uId)
{
    const QMDate dtDate = m_dateField.Read();
    const QMDate dtCleared = m_clearedField.Read();
    if (uId == IDC_TX_DATE) {
        m_clearedField.Show(m_entry->ClearedDateFor(dtDate, dtCleared));
    } else if (uId == IDC_TX_DATECLEARED) {
        m_dateField.Show(QMTransactionEntry::DateFor(dtDate, dtCleared));
    }
}

// ---- Between fields and controls.

QMEntryFields QMTransactionDialog::ReadFields()
{
    QMEntryFields fields;
    for (const auto& type : aTypes) {
        if (IsButtonChecked(type.nId)) {
            fields.lType = type.lType;
        }
    }
    fields.sNumber = GetItemText(IDC_TX_NUMBER);
    fields.sDescription = GetItemText(IDC_TX_DESCRIPTION);
    fields.dtDate = m_dateField.Read();
    fields.dtCleared = m_clearedField.Read();
    fields.sAmount = GetItemText(IDC_TX_AMOUNT);
    fields.sMemo = GetItemText(IDC_TX_MEMO);
    fields.sCategory = GetItemText(IDC_TX_CATEGORY);
    fields.boxes = ReadBoxes();
    return fields;
}

QMEntryBoxes QMTransactionDialog::ReadBoxes() const
{
    return {.bTax = IsButtonChecked(IDC_TX_TAX),
            .bExpense = IsButtonChecked(IDC_TX_EXPENSE),
            .bVoided = IsButtonChecked(IDC_TX_VOIDED),
            .bCleared = IsButtonChecked(IDC_TX_CLEARED)};
}

void QMTransactionDialog::ShowFields(const QMEntryFields& fields, bool bWithDates)
{
    for (const auto& type : aTypes) {
        CheckButton(type.nId, type.lType == fields.lType ? BST_CHECKED : BST_UNCHECKED);
    }
    if (bWithDates) {
        m_dateField.Show(fields.dtDate);
        m_clearedField.Show(fields.dtCleared);
    }
    SetItemText(IDC_TX_AMOUNT, fields.sAmount.GetText());
    SetItemText(IDC_TX_MEMO, fields.sMemo.GetText());
    SetItemText(IDC_TX_CATEGORY, fields.sCategory.GetText());
    ShowTypeFields(fields);
}

void QMTransactionDialog::ShowTypeFields(const QMEntryFields& fields)
{
    const QMEntrySwitches switches = QMSwitchesOfType(fields.lType);
    EnableItem(IDC_TX_NUMBERLABEL, switches.bNumber);
    EnableItem(IDC_TX_NUMBER, switches.bNumber);
    SetItemText(IDC_TX_NUMBER, fields.sNumber.GetText());
    EnableItem(IDC_TX_DESCRIPTIONLABEL, switches.bDescription);
    EnableItem(IDC_TX_DESCRIPTION, switches.bDescription);
    SetItemText(IDC_TX_DESCRIPTION, fields.sDescription.GetText());
    EnableItem(IDC_TX_TAX, switches.bTag);
    EnableItem(IDC_TX_EXPENSE, switches.bTag);
    EnableItem(IDC_TX_VOIDED, switches.bVoided);
    EnableItem(IDC_TX_CLEARED, switches.bCleared);
    ShowBoxes(fields.boxes);
}

void QMTransactionDialog::ShowBoxes(const QMEntryBoxes& boxes)
{
    CheckButton(IDC_TX_TAX, boxes.bTax ? BST_CHECKED : BST_UNCHECKED);
    CheckButton(IDC_TX_EXPENSE, boxes.bExpense ? BST_CHECKED : BST_UNCHECKED);
    CheckButton(IDC_TX_VOIDED, boxes.bVoided ? BST_CHECKED : BST_UNCHECKED);
    CheckButton(IDC_TX_CLEARED, boxes.bCleared ? BST_CHECKED : BST_UNCHECKED);
    EnableItem(IDC_TX_DATECLEARED, boxes.bCleared);
}
