// Ids in the resources of the window tests.
#pragma once

#define IDM_TEST 100  // a menu: 101 and 102 in a popup, 103 beside it
#define IDA_TEST 110  // an accelerator table: F5 sends 111
#define IDB_TEST 120  // a bitmap of 32 by 16 pixels: the left half red, the right half blue
#define IDD_TEST 130  // a dialog with an edit field, a push button and a check box
#define IDD_PLAIN 134 // a dialog with an edit field and a push button
#define IDC_EDIT 131
#define IDC_PUSH 132
#define IDC_CHECK 133
#define IDD_OK_CANCEL 135 // a dialog with an edit field, a combo box, a check box, OK and Cancel
#define IDD_PAGE_ONE 136  // pages of a sheet, titled One, Two and Three, each with an edit field
#define IDD_PAGE_TWO 137
#define IDD_PAGE_THREE 138
#define IDC_COMBO 139
#define IDS_SHORT 140
#define IDS_ACCENTS 141
#define IDS_4095 142
#define IDS_4096 143
#define IDS_4100 144
#define IDS_EMPTY 145
#define IDS_MISSING 146
#define IDS_PROMPT_AND_TIP 147
#define IDS_PROMPT_WITH_TAB 148
