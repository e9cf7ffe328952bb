// What the exchange formats are measured against: plain loops that trust everything they read.
#pragma once

#include <string>

// Writes a text line by line.
bool PlainWrite(const char* szPath, const std::string& sText);

// Read a QIF or CSV file line by line and put the date, number, amount and texts of each record
// into a record of fixed size. Return the number of records. The records stay until the process
// ends.
size_t PlainReadQif(const char* szPath);
size_t PlainReadCsv(const char* szPath);

// Reads a document by one call and parses it by Expat with handlers that do nothing. Returns false
// when it cannot be parsed.
bool ParseOnly(const char* szPath);
