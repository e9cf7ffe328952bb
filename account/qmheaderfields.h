// A table of the header's fields by name, for code that treats all fields alike.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "account/qmaccountdata.h"

enum class QMHeaderKind
{
    Text,
    Date,
    Real,
    Flag,
    Signed,
    Unsigned
};

struct QMHeaderField
{
    const char* szName;
    QMHeaderKind kind;
    size_t uOffset;
    size_t uSize; // in bytes; the terminating zero of a text included
};

// The fields in the order of the file. Reserved bytes are not in the table.
std::span<const QMHeaderField> QMHeaderFields();
