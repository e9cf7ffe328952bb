// The fields of an account's header by name, for all who treat them alike.
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
    size_t uSize; // bytes, a text's terminator included
};

// In the order of the file; reserved bytes are left out.
std::span<const QMHeaderField> QMHeaderFields();
