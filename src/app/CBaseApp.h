#pragma once

#include "callback/CallbackHolder.h"
#include "i18n/Locale.h"
#include "i18n/StrBundleTrMgr.h"
#include "i18n/Translation.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "web/NetProxy.h"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <string>

namespace quillon {

/// What every product of the house has in common, whatever its window looks like: who it is, where its data
/// lies, its language, its proxy and its log. The main window derives from it and supplies the product's
/// constants. All operations belong to the main thread, save `getLocale`, `getString`, the translation list
/// and the copies of proxy and selection, which any thread may ask for.
class CBaseApp : public i18n::internal::ILocaleProvider<char>,
                 public i18n::internal::IStrBundle<char>,
                 public i18n::internal::ILocaleCallback<char>,
                 public callback::CallbackHolder<i18n::internal::LocaleTuple<char>>,
                 public i18n::internal::ITranslationListProvider<char>
{
public:
    /// Takes over the language that is loaded, with the direction in which it is written, and silences the
    /// log. Made behind the translator, whose installation resets the direction.
    CBaseApp();

    /// Silences the log, closes the log file and gives the process's log sender back. Nobody may log
    /// meanwhile on another thread.
    ~CBaseApp() override;

    // ILocaleProvider
    void getLocale(i18n::internal::Locale<char>& out) const override;

    [[nodiscard]] virtual std::uint32_t getProductId() const = 0;
    [[nodiscard]] virtual std::uint32_t getProductFlavour() const = 0;
    virtual void getProductVersion(std::uint32_t& major, std::uint32_t& minor, std::uint32_t& patch,
                                   std::uint32_t& build) const = 0;

    /// Turn the stored form of the setting `key` into its plain one, and back. False, and `plain` or `stored`
    /// untouched, where the two are the same or where it fails; here that is always.
    virtual bool decodeSettingValue(const char* key, const QVariant& stored, QVariant* plain) const;
    virtual bool encodeSettingValue(const char* key, const QVariant& plain, QVariant* stored) const;

    // IStrBundle and ITranslationListProvider, answered by the string bundle of the process
    [[nodiscard]] std::string getString(const char* context, const char* source) const override;
    [[nodiscard]] int getTranslationCount() const override;
    bool getTranslation(i18n::internal::Translation<char>& out, int index) const override;

    // ILocaleCallback
    /// Changes the language: loads its texts, stores its id and tells every listener but this object
    /// language, country and `value`. An empty country becomes the usual one of the language. Does nothing
    /// where the language is in force or unknown, and changes nothing where its texts cannot be loaded.
    void onLocaleChanged(const std::string& language, const std::string& country, long value) override;

    /// The name of the product table for the product's id; empty where the table has none.
    [[nodiscard]] QString getProductName() const;

    /// The four version numbers, joined by ".".
    [[nodiscard]] QString getProductVersionString() const;

    /// Name and version as a window title shows them; empty where the product has no name.
    [[nodiscard]] QString getProductTitle() const;

    /// Hands organisation, name and version to the application object's class.
    void applyCoreAppIdentity() const;

    /// The organisation's folder among this user's data, and in it that of a product, which lies in its
    /// parent's where `parentId` is not 0. With `create`, made where it is missing; a failure to do so is
    /// silent. Empty where the system names no such folder or the product table no such product.
    [[nodiscard]] static QString getCompanyDataPath(bool create);
    [[nodiscard]] static QString getAppDataPath(std::uint32_t parentId, std::uint32_t productId, bool create);

    /// The full name of the log file. Empty where there is no folder for it.
    [[nodiscard]] QString getLogFilePath() const;

    /// Read the proxy and its selection from the settings, and write them there. A stored number that is not
    /// valid becomes 0 as the proxy's type, and leaves the selection as it is.
    void loadNetProxy();
    void saveNetProxy() const;

    [[nodiscard]] web::NetProxy<char> getNetProxy() const { return m_netProxy.get(); }
    void setNetProxy(const web::NetProxy<char>& proxy) { m_netProxy.set(proxy); }
    [[nodiscard]] web::EProxySelectType getProxySelectType() const { return m_proxySelectType.get(); }
    void setProxySelectType(web::EProxySelectType type) { m_proxySelectType.set(type); }

protected:
    using Locale = i18n::internal::Locale<char>;

    /// Loads the texts of `locale`, makes it the current one and turns the windows as it is written, without
    /// a word to the listeners and to the settings. False, and nothing changed, where its texts cannot be
    /// loaded.
    [[nodiscard]] bool loadLocale(const Locale& locale);

private:
    // In CBaseAppLocale.cpp
    [[nodiscard]] static bool loadTexts(const std::string& language, const std::string& country);
    void followLoadedTexts();

    // In CBaseAppProxy.cpp
    [[nodiscard]] QVariant decodedPassword(const QVariant& stored) const;
    [[nodiscard]] QVariant encodedPassword(const QVariant& plain) const;

    sync::SafeValue<bool> m_closing{false};
    sync::SafeData<sync::Locker, Locale> m_locale;
    sync::SafeData<sync::Locker, web::NetProxy<char>> m_netProxy;
    sync::SafeData<sync::Locker, web::EProxySelectType> m_proxySelectType;
};

} // namespace quillon
