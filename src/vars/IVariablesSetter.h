#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <string>

namespace quillon::vars::internal {

/// Rides along with a variable; readers of files always pass the values that stand here.
struct SVariableOptions
{
    std::uint32_t type = 0;
    std::uint32_t mode = 1;
};

template <class Char>
class IVariablesSetter;

/// Takes named texts from whoever reads them. All texts are UTF-8.
template <>
class IVariablesSetter<char>
{
public:
    virtual ~IVariablesSetter() = default;

    virtual err::ResultCode setValue(const std::string& key, const std::string& value,
                                     const SVariableOptions& options) = 0;
    virtual err::ResultCode setValue(const std::string& key, const std::string& value) = 0;

    virtual err::ResultCode removeValue(const std::string& key) = 0;
    virtual err::ResultCode clearValues() = 0;
};

} // namespace quillon::vars::internal
