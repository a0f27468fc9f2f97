#pragma once

#include <string>

/// How a test steers the library of FakeCurl.cpp, and what that writes down. Exported as `fake_curl`.
struct FakeCurl
{
    bool hasNoHandle = false;
    int refusedOption = 0;
    int performCode = 0;
    int infoCode = 0;
    long status = 0;
    std::string options; ///< "41=0 10002=http://host/ 20011= ": numbers and texts with their values
};
