#include "shell/qmfiledialogs.h"

#include "account/qmaccountformat.h"

QMFileDialogs::QMFileDialogs()
{
    open.AddFilter("Quillmark Files (*.qmk)", "qmk");
    open.AddFilter("All Files (*.*)", "*");
    save.AddFilter("Quillmark File (*.qmk)", "qmk");
    save.AddFilter("Quillmark File 1.0 (*.qmk)", "qmk");
    save.AddFilter("Quillmark File 1.1 (*.qmk)", "qmk");
    save.AddFilter("Quillmark File 2.0 (*.qmk)", "qmk");
    save.AddFilter("All Files (*.*)", "*");
    for (VFileDialog* pDialog : {&importFrom, &exportTo}) {
        pDialog->AddFilter("Quicken Interchange Format (*.qif)", "qif");
        pDialog->AddFilter("Extensible Markup Language (*.xml)", "xml");
        pDialog->AddFilter("Comma Separated Value (*.csv)", "csv");
        pDialog->AddFilter("Text File (*.txt)", "txt");
    }
}

int32_t QMVersionOfFilter(uint32_t uLine)
{
    switch (uLine) {
        case 1:
            return 0;
        case 2:
            return QM_VERSION_1_0;
        case 3:
            return QM_VERSION_1_1;
        default:
            // "All Files" stands for no version, so the newest one is taken.
            return QM_VERSION_2_0;
    }
}
