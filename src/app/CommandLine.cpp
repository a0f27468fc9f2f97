#include "app/CommandLine.h"

#include "crypto/HashCatalogue.h"
#include "text/AsciiText.h"

#include <QFileInfo>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace thisapp {
namespace {

bool hasKeyMark(std::string_view token)
{
    return !token.empty() && (token.front() == '-' || token.front() == '/');
}

bool isKey(std::string_view token, std::initializer_list<std::string_view> names)
{
    return hasKeyMark(token) && std::ranges::any_of(names, [token](std::string_view name) {
               return quillon::text::equalsIgnoringAsciiCase(token.substr(1), name);
           });
}

/// Walks the tokens from the first to the last.
class Walk
{
public:
    explicit Walk(const QStringList& arguments)
    {
        for (const QString& argument : arguments)
            m_tokens.push_back(argument.toStdString());
    }

    CommandLine read()
    {
        while (m_next < m_tokens.size())
            readToken(m_tokens[m_next++]);
        return m_result;
    }

private:
    void readToken(const std::string& token)
    {
        if (isKey(token, {"ifile"}))
            readFile();
        else if (isKey(token, {"a", "alg", "algorithm"}))
            readAlgorithm();
        else if (isKey(token, {"start"}))
            m_result.start = true;
    }

    void readFile()
    {
        if (const auto value = takeValue())
            m_result.file = fileNameFrom(QString::fromStdString(*value));
    }

    void readAlgorithm()
    {
        // A name that matches nothing leaves the id as it was.
        if (const auto value = takeValue())
            static_cast<void>(quillon::crypto::findAlgorithmIdByName(*value, m_result.algorithmId));
    }

    std::optional<std::string> takeValue()
    {
        if (m_next == m_tokens.size() || hasKeyMark(m_tokens[m_next]))
            return std::nullopt;
        return m_tokens[m_next++];
    }

    std::vector<std::string> m_tokens;
    std::size_t m_next = 0;
    CommandLine m_result;
};

} // namespace

QString fileNameFrom(const QString& text)
{
    QString trimmed = text.trimmed();
    return trimmed.size() != text.size() && QFileInfo::exists(text) ? text : trimmed;
}

CommandLine parseCommandLine(const QStringList& arguments)
{
    if (arguments.size() != 1)
        return Walk(arguments).read();
    QString file = fileNameFrom(arguments.front());
    return !file.isEmpty() && QFileInfo::exists(file) ? CommandLine{file, 0, false} : CommandLine{};
}

} // namespace thisapp
