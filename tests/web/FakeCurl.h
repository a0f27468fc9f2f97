#pragma once

/// How a test steers the library of FakeCurl.cpp, and what that writes down. Exported as `fake_curl`.
struct FakeCurl
{
    bool hasNoHandle;
    int refusedOption;
    void (*onPerform)(); ///< called within the transfer
    char options[2048];  ///< "41=0 10002=http://host/ 20011= ": numbers and texts with their values
    unsigned length;     ///< of `options`
};
