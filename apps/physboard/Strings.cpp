#include "Strings.h"
#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

// The compiled texts sit in a static library's resources, which nothing else pulls in.
static void initTranslations() { Q_INIT_RESOURCE(translations); }

namespace Strings {

namespace {

Language g_language = English;
QSet<QString> g_missing;

// The texts live in Qt Linguist files (translations/*.ts), compiled by lrelease into the
// board's resources; the key is the source text, the context "Strings".
QTranslator &translator(Language lang)
{
    static QTranslator t[2];
    static bool loaded[2] = {false, false};
    if (!loaded[lang]) {
        loaded[lang] = true;
        initTranslations();
        if (!t[lang].load(lang == Chinese ? QStringLiteral(":/i18n/physboard_zh_CN.qm") : QStringLiteral(":/i18n/physboard_en.qm")))
            qWarning("physboard: the %s texts are missing from this build", lang == Chinese ? "Chinese" : "English");
    }
    return t[lang];
}

QString lookup(const QString &key, Language lang)
{
    return translator(lang).translate("Strings", key.toUtf8().constData());
}

// "IDS_PHYSICSOBJ_SCALE_COLOR" -> "Scale color": better than a raw key on screen.
QString readable(const QString &key)
{
    static const QRegularExpression prefix(QStringLiteral("^(IDS_PHYSICSOBJ_|IDS_SVG_PHYSICAL_|IDS_PHYSICAL_|IDS_SVG_|IDS_|BOARD_)"));
    QString s = key;
    s.remove(prefix);
    s.replace(QLatin1Char('_'), QLatin1Char(' '));
    s = s.toLower().trimmed();
    if (s.isEmpty())
        return QStringLiteral("?");
    s[0] = s[0].toUpper();
    return s;
}

} // namespace

Language language() { return g_language; }
void setLanguage(Language lang) { g_language = lang; }

Language systemLanguage()
{
    return QLocale::system().language() == QLocale::Chinese ? Chinese : English;
}

bool has(const QString &key, Language lang) { return !lookup(key, lang).isEmpty(); }

QString text(const QString &key, Language lang)
{
    const QString t = lookup(key, lang);
    if (!t.isEmpty())
        return t;
    g_missing.insert(key);
    return readable(key);
}

QString text(const QString &key) { return text(key, g_language); }

QString plain(const QString &key)
{
    static const QRegularExpression mnemonic(QStringLiteral("\\(&[^)]\\)|&(?!&)"));
    QString s = text(key);
    s.remove(mnemonic);
    return s.replace(QLatin1String("&&"), QLatin1String("&"));
}

QString label(const QString &keyOrText)
{
    if (keyOrText.startsWith(QLatin1String("IDS_")))
        return text(keyOrText);
    return keyOrText;
}

namespace {
QString typeKey(int typeId) { return QStringLiteral("APPARATUS_%1").arg(typeId); }
} // namespace

QString typeName(int typeId, const char *fallback)
{
    const QString t = lookup(typeKey(typeId), g_language);
    if (!t.isEmpty())
        return t;
    g_missing.insert(typeKey(typeId));
    return fallback ? QString::fromUtf8(fallback) : QStringLiteral("#%1").arg(typeId);
}

bool hasTypeName(int typeId, Language lang) { return has(typeKey(typeId), lang); }

QStringList missing()
{
    QStringList keys = g_missing.values();
    keys.sort();
    return keys;
}

void clearMissing() { g_missing.clear(); }

} // namespace Strings
