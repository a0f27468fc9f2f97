// bench_i18n LANGUAGES_FOLDER: what the texts of a language cost.
//
// Loads the German file of the folder, once as any start of the program does and once with the list of
// languages at hand, against reading its lines with fgets; and looks up all its texts against std::map::find
// on the same keys. The kinds take turns, and what is printed are the medians of the rounds and of their
// ratios.

#include "i18n/LocaleResLoader.h"
#include "i18n/StrBundleTrMgr.h"
#include "i18n/TranslationListLoaderXml.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace quillon::i18n::internal;
using quillon::err::ResultCode;

constexpr int kRounds = 1001;
constexpr const char* kFile = "kestrum.de.tr";

/// Knows the German file without reading a list.
class ListAtHand final : public ITranslationListLoader<char>
{
public:
    ResultCode load(const std::string& /*name*/, const std::string& /*path*/) override { return {}; }

    void getList(std::vector<Translation<char>>& out) const override
    {
        out = {{kTranslationTranslations, "Deutsch", "de", "DE", kFile, ""}};
    }
};

class ListsAtHand final : public ITranslationListLoaderFactory<char>
{
public:
    ResultCode create(ITranslationListLoader<char>** out) override
    {
        *out = std::make_unique<ListAtHand>().release();
        return {};
    }
};

struct Key
{
    std::string context;
    std::string source;
};

class KeyCollector final : public ILocaleResLoaderCallback<char>
{
public:
    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override
    {
        keys.push_back({context, source});
        map.emplace(source, translation);
    }

    std::vector<Key> keys;
    std::map<std::string, std::string> map;
};

template <class Step>
double microseconds(Step step)
{
    const auto begin = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "bench_i18n: %s\n", what);
    std::exit(1);
}

void readLines(const std::string& path)
{
    std::array<char, 4096> line{};
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    require(file != nullptr, "the German file cannot be opened");
    while (std::fgets(line.data(), static_cast<int>(line.size()), file) != nullptr) {
    }
    static_cast<void>(std::fclose(file));
}

/// Times of one kind and their ratios to the times of another, both of the same rounds.
struct Series
{
    void add(double time, double unit)
    {
        times.push_back(time);
        ratios.push_back(time / unit);
    }

    void print(const char* name) const
    {
        std::printf("%-34s %8.2f us, ratio %5.2f\n", name, median(times), median(ratios));
    }

    std::vector<double> times;
    std::vector<double> ratios;
};

StrBundleTrMgr<char> makeManager(std::shared_ptr<ITranslationListLoaderFactory<char>> lists,
                                 const std::string& folder)
{
    return {std::move(lists), std::make_shared<LocaleResLoaderFactory<char>>(), folder};
}

void load(StrBundleTrMgr<char>& manager)
{
    const ResultCode result = manager.loadTranslation("de", "DE", true);
    require(succeeded(result) && manager.getItemCount() > 0, "the German texts cannot be loaded");
}

void measureLoading(StrBundleTrMgr<char>& atHand, StrBundleTrMgr<char>& whole, const std::string& path)
{
    Series lines;
    Series file;
    Series fileAndList;
    for (int round = 0; round < kRounds; ++round) {
        const double unit = microseconds([&path] { readLines(path); });
        lines.add(unit, unit);
        file.add(microseconds([&atHand] { load(atHand); }), unit);
        fileAndList.add(microseconds([&whole] { load(whole); }), unit);
    }
    lines.print("fgets");
    file.print("loading the file");
    fileAndList.print("loading the list and the file");
}

void measureLookups(const StrBundleTrMgr<char>& manager, const KeyCollector& reference)
{
    Series found;
    Series looked;
    std::size_t bytes = 0;
    for (int round = 0; round < kRounds; ++round) {
        const double unit = microseconds([&] {
            for (const Key& key : reference.keys)
                bytes += reference.map.find(key.source)->second.size();
        });
        found.add(unit, unit);
        looked.add(microseconds([&] {
                       for (const Key& key : reference.keys)
                           bytes += manager.getString(key.context.c_str(), key.source.c_str()).size();
                   }),
                   unit);
    }
    require(bytes > 0, "there are no texts");
    std::printf("%zu texts\n", reference.keys.size());
    found.print("std::map::find, all texts");
    looked.print("lookup, all texts");
}

} // namespace

int main(int argc, char* argv[])
{
    require(argc == 2, "usage: bench_i18n LANGUAGES_FOLDER");
    const std::string folder = argv[1];
    const std::string path = folder + '/' + kFile;
    StrBundleTrMgr<char> atHand = makeManager(std::make_shared<ListsAtHand>(), folder);
    StrBundleTrMgr<char> whole = makeManager(std::make_shared<TranslationListLoaderFactory<char>>(), folder);
    for (StrBundleTrMgr<char>* const manager : {&atHand, &whole})
        require(succeeded(manager->setProductName("kestrum")), "the product cannot be named");
    measureLoading(atHand, whole, path);

    ILocaleResLoader<char>* made = nullptr;
    require(succeeded(LocaleResLoaderFactory<char>().create(&made, kTranslationTranslations)), "no loader");
    const std::unique_ptr<ILocaleResLoader<char>> loader(made);
    KeyCollector reference;
    require(succeeded(loader->load(path, &reference)), "the German file cannot be loaded");
    measureLookups(whole, reference);
    return 0;
}
