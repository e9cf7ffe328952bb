// The measures of the exchange formats: plain loops that believe everything they read.
#pragma once

#include <string>

// Writes a text line by line.
bool PlainWrite(const char* szPath, const std::string& sText);

// Reads a QIF or CSV file line by line and puts date, number, amount and texts of each record into
// a record of its fixed size. Return the number of records, which stay until the process ends.
size_t PlainReadQif(const char* szPath);
size_t PlainReadCsv(const char* szPath);

// Reads a document in one call and has Expat parse it with handlers that do nothing. False when it
// does not parse.
bool ParseOnly(const char* szPath);
