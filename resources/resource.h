// The numbers of all resources of the program, and of its commands, bars and controls. The resource
// compiler reads this file too, so it holds nothing but #define lines.
#pragma once

// Icons
#define IDI_QUILLMARK 700
#define IDI_REGISTER 701

// The menu, the positions of its submenus, and the position in the File menu at which the recent
// files begin.
#define IDR_MAINMENU 800
#define QM_MENU_FILE 0
#define QM_MENU_VIEW 1
#define QM_MENU_TRANSACTION 2
#define QM_MENU_TOOLS 3
#define QM_MENU_WINDOW 4
#define QM_MENU_HELP 5
#define QM_FILEMENU_RECENT 20

// Accelerator tables: the first one serves while no document is open, the second one while one is.
#define IDR_ACCEL_FRAME 1700
#define IDR_ACCEL_DOCUMENT 1701

// Bitmaps. Headings and marks are dark on white, so that they can be drawn on any background. They
// are 10 by 10 pixels. The toolbar is a strip of 19 pictures of 16 by 16 pixels with an alpha
// channel that is not premultiplied.
#define IDB_SPLASH 1800
#define IDB_HEADING_CLEARED 1801
#define IDB_HEADING_TAG 1802
#define IDB_MARK_TAX 1803
#define IDB_MARK_EXPENSE 1804
#define IDB_MARK_VOIDED 1805
#define IDB_MARK_CLEARED 1806
#define IDB_TOOLBAR 1811

// Bitmaps of the transaction dialog: signs of 12 by 12 pixels beside its check boxes, pictures of
// 16 by 16 with an alpha channel that is not premultiplied on its buttons, and a strip of four
// arrows for systems whose buttons draw no alpha channel.
#define IDB_SIGN_TAX 1807
#define IDB_SIGN_EXPENSE 1808
#define IDB_SIGN_VOIDED 1809
#define IDB_SIGN_CLEARED 1810
#define IDB_BUTTON_ADD 1812
#define IDB_ARROW_STRIP 5101
#define IDB_ARROW_FIRST 5102
#define IDB_ARROW_PREVIOUS 5103
#define IDB_ARROW_NEXT 5104
#define IDB_ARROW_LAST 5105
#define IDB_BUTTON_PRINT 5106
#define IDB_BUTTON_PREVIEW 5107
#define IDB_BUTTON_SETUP 5108

// Strings. Every string that is not named here has the number of the command that it explains.
#define IDS_APPLICATION 1
#define IDS_HELPFILE 699

// Commands: File
#define IDM_FILE_NEW 57600
#define IDM_FILE_OPEN 57601
#define IDM_FILE_CLOSE 57602
#define IDM_FILE_CLOSEALL 104
#define IDM_FILE_SAVE 57603
#define IDM_FILE_SAVEAS 57604
#define IDM_FILE_SAVEALL 107
#define IDM_FILE_PRINT 57607
#define IDM_FILE_PREVIEW 57609
#define IDM_FILE_PAGESETUP 57605
#define IDM_FILE_IMPORT 111
#define IDM_FILE_EXPORT 112
#define IDM_FILE_ACCOUNTINFO 113
#define IDM_FILE_PASSWORD 114
#define IDM_FILE_RECENT_FIRST 115
#define IDM_FILE_RECENT_LAST 124
#define IDM_FILE_RECENT_EMPTY 125
#define IDM_FILE_EXIT 126

// Commands: View
#define IDM_VIEW_GRIDLINES 200
#define IDM_VIEW_SHADEDLINES 201
#define IDM_VIEW_DATE 202
#define IDM_VIEW_NUMBER 203
#define IDM_VIEW_DESCRIPTION 204
#define IDM_VIEW_DEBIT 205
#define IDM_VIEW_CREDIT 206
#define IDM_VIEW_BALANCE 207
#define IDM_VIEW_MEMO 208
#define IDM_VIEW_CATEGORY 209
#define IDM_VIEW_TAG 210
#define IDM_VIEW_CLEARED 211
#define IDM_VIEW_TOOLBAR 59392
#define IDM_VIEW_TRANSACTIONSBAR 213
#define IDM_VIEW_STATUSBAR 214

// Commands: Transaction
#define IDM_TRANSACTION_ADD 300
#define IDM_TRANSACTION_EDIT 301
#define IDM_TRANSACTION_REMOVE 302
#define IDM_TRANSACTION_TAX 303
#define IDM_TRANSACTION_EXPENSE 304
#define IDM_TRANSACTION_VOIDED 305
#define IDM_TRANSACTION_CLEARED 306

// Commands: Tools. IDM_TOOLS_GRAPHS has a prompt but no menu item.
#define IDM_TOOLS_REPORTS 400
#define IDM_TOOLS_GRAPHS 401
#define IDM_TOOLS_BANKWEBPAGE 402
#define IDM_TOOLS_CALCULATOR 403
#define IDM_TOOLS_AUTOSIZE 404
#define IDM_TOOLS_OPTIONS 405

// Commands: Window
#define IDM_WINDOW_CASCADE 57650
#define IDM_WINDOW_TILEHORIZONTAL 500
#define IDM_WINDOW_TILEVERTICAL 501
#define IDM_WINDOW_NEXT 503
#define IDM_WINDOW_PREVIOUS 504

// Commands: Help
#define IDM_HELP_GETTINGSTARTED 600
#define IDM_HELP_CONTENTS 601
#define IDM_HELP_INDEX 57666
#define IDM_HELP_ABOUT 604

// The bars, and the controls of the Transactions Bar. The numbers of its list and its date pickers
// are commands of the frame too.
#define IDC_TOOLBAR 2000
#define IDC_TRANSACTIONSBAR 2001
#define IDC_TB_PERIOD 2002
#define IDC_TB_FROM 2003
#define IDC_TB_TO 2004
#define IDC_TB_FROMLABEL 2005
#define IDC_TB_TOLABEL 2006
#define IDC_TB_PERIODLABEL 2007
#define IDC_FRAMETOOLBAR 3500
#define IDC_STATUSBAR 3501
#define IDC_REBAR 3502

// A control that the program never looks for
#define IDC_STATIC (-1)

// The About box
#define IDD_ABOUT 1000

// The transaction dialog. The numbers of its radio buttons are not in the order of the types.
#define IDD_TRANSACTION 1600
#define IDC_TX_CHECK 1601
#define IDC_TX_DEPOSIT 1602
#define IDC_TX_WITHDRAWAL 1603
#define IDC_TX_FEE 1604
#define IDC_TX_DIRECTDEPOSIT 1605
#define IDC_TX_ATMDEPOSIT 1606
#define IDC_TX_ATMWITHDRAWAL 1607
#define IDC_TX_DIRECTDEBIT 1608
#define IDC_TX_AUTOMATICPAYMENT 1609
#define IDC_TX_TRANSFERCREDIT 1610
#define IDC_TX_TRANSFERDEBIT 1611
#define IDC_TX_INTEREST 1612
#define IDC_TX_NUMBER 1613
#define IDC_TX_DATE 1614
#define IDC_TX_DESCRIPTION 1615
#define IDC_TX_AMOUNT 1616
#define IDC_TX_MEMO 1617
#define IDC_TX_CATEGORY 1618
#define IDC_TX_TAX 1619
#define IDC_TX_EXPENSE 1620
#define IDC_TX_VOIDED 1621
#define IDC_TX_CLEARED 1622
#define IDC_TX_DATECLEARED 1623
#define IDC_TX_NUMBERLABEL 1624
#define IDC_TX_DESCRIPTIONLABEL 1625
#define IDC_TX_ADD 1900
#define IDC_TX_PREVIOUS 1901
#define IDC_TX_NEXT 1902
#define IDC_TX_FIRST 1903
#define IDC_TX_LAST 1904

// The password dialogs
#define IDD_PASSWORD 10200
#define IDD_SETPASSWORD 10201
#define IDC_PW_EXPLANATION 10202
#define IDC_PW_CURRENTLABEL 10203
#define IDC_PW_CURRENT 10204
#define IDC_PW_NEW 10205
#define IDC_PW_NEWAGAIN 10206

// The account's information: its pages and their controls
#define IDD_BANK_PAGE 1400
#define IDC_BANK_NAME 1401
#define IDC_BANK_ADDRESS 1402
#define IDC_BANK_CITY 1403
#define IDC_BANK_STATE 1404
#define IDC_BANK_ZIP 1405
#define IDC_BANK_PHONE 1406
#define IDC_BANK_HOMEPAGE 1407
#define IDC_BANK_GO 1905
#define IDD_HOLDER_PAGE 1410
#define IDC_HOLDER_NAME 1411
#define IDC_HOLDER_ADDRESS 1412
#define IDC_HOLDER_CITY 1413
#define IDC_HOLDER_STATE 1414
#define IDC_HOLDER_ZIP 1415
#define IDC_HOLDER_PHONE 1416
#define IDD_ACCOUNT_PAGE 1420
#define IDC_ACCOUNT_NUMBER 1421
#define IDC_ACCOUNT_OPENED 1422
#define IDC_ACCOUNT_MINIMUM 1423
#define IDC_ACCOUNT_READONLY 1424

// The options: their pages and their controls
#define IDD_GENERAL_OPTIONS 1201
#define IDD_DISPLAY_OPTIONS 1202
#define IDD_PRINTING_OPTIONS 1203
#define IDC_OPTION_UNCLEARED 1001
#define IDC_OPTION_SORT 1002
#define IDC_OPTION_FONT 1210
#define IDC_OPTION_CONFIRM 1211
#define IDC_OPTION_RELOAD 1212
#define IDC_OPTION_SPLASH 1213
#define IDC_OPTION_PAGENUMBERS 1214
#define IDC_OPTION_BANKNAME 1215
#define IDC_OPTION_HOLDERNAME 1216
#define IDC_OPTION_POSITIVE 1217
#define IDC_OPTION_NEGATIVE 1218
#define IDC_OPTION_SELECTFONT 1911
#define IDC_OPTION_DEFAULTS 1912
#define IDC_OPTION_SELECTPOSITIVE 1916
#define IDC_OPTION_SELECTNEGATIVE 1917

// The calculator: its window, its accelerators, and its keys, which are commands
#define IDD_CALCULATOR 10100
#define IDR_ACCEL_CALCULATOR 10002
#define IDC_CALC_DISPLAY 10101
#define IDC_CALC_MEMORYMARK 10102
#define IDM_CALC_0 11100
#define IDM_CALC_1 11101
#define IDM_CALC_2 11102
#define IDM_CALC_3 11103
#define IDM_CALC_4 11104
#define IDM_CALC_5 11105
#define IDM_CALC_6 11106
#define IDM_CALC_7 11107
#define IDM_CALC_8 11108
#define IDM_CALC_9 11109
#define IDM_CALC_ADD 11110
#define IDM_CALC_SUBTRACT 11111
#define IDM_CALC_MULTIPLY 11112
#define IDM_CALC_DIVIDE 11113
#define IDM_CALC_EQUALS 11114
#define IDM_CALC_POINT 11115
#define IDM_CALC_MEMORYADD 11116
#define IDM_CALC_MEMORYSTORE 11117
#define IDM_CALC_MEMORYRECALL 11118
#define IDM_CALC_MEMORYCLEAR 11119
#define IDM_CALC_BACK 11120
#define IDM_CALC_CLEARENTRY 11121
#define IDM_CALC_CLEAR 11122
#define IDM_CALC_SIGN 11123
#define IDM_CALC_NOTHING 11124

// The reports
#define IDD_REPORTS 2101
#define IDC_REPORT_TYPE 2102
#define IDC_REPORT_CATEGORYLABEL 2103
#define IDC_REPORT_CATEGORY 2104
#define IDC_REPORT_BYMONTH 2105
#define IDC_REPORT_BYRANGE 2107
#define IDC_REPORT_MONTH 2109
#define IDC_REPORT_YEAR 2111
#define IDC_REPORT_FROM 2112
#define IDC_REPORT_TO 2114
#define IDC_REPORT_RUN 1905
#define IDC_REPORT_CLOSE 1906
#define IDC_REPORT_PRINT 1907
#define IDC_REPORT_PREVIEW 1908

// The import review
#define IDD_IMPORT 2201
#define IDC_IMPORT_ALL 2202
#define IDC_IMPORT_CLEARALL 2203
#define IDC_IMPORT_LIST 2204
#define IDC_IMPORT_IMPORT 1918

// The window that shows how far a save, an import or an export is
#define IDD_PROGRESS 2300
#define IDC_PROGRESS_TASK 2301
#define IDC_PROGRESS_BAR 2302

// The progress of a print job, and the print preview
#define IDD_PRINTPROGRESS 10300
#define IDC_PROGRESS_TITLE 10301
#define IDC_PROGRESS_STATUS 10302
#define IDD_PRINTPREVIEW 10401
#define IDC_PREVIEW_CLOSE 11401
#define IDC_PREVIEW_PRINT 11402
#define IDC_PREVIEW_SETUP 11403
#define IDC_PREVIEW_FIRST 11404
#define IDC_PREVIEW_PREVIOUS 11405
#define IDC_PREVIEW_NEXT 11406
#define IDC_PREVIEW_LAST 11407
#define IDC_PREVIEW_SCALE 11408
#define IDC_PREVIEW_PAGE 11409

// The MDI client window, and the first of its children
#define IDC_MDICLIENT 25000
#define IDC_FIRSTCHILD 25001
