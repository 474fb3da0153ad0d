#pragma once
// Every text the board shows, in English and Simplified Chinese: the library's
// string-resource keys ("IDS_..."), the apparatus names and the board's own labels.
// Translators edit translations/physboard_*.ts with Qt Linguist; lrelease compiles them.
#include <QString>
#include <QStringList>

namespace Strings {

enum Language { English = 0, Chinese = 1 };

Language language();
void setLanguage(Language lang);
// The language of the system's locale: Chinese for any Chinese locale, else English.
Language systemLanguage();

// The text of a key in the current (or the given) language. A key the table lacks
// never shows raw: it is turned into readable words.
QString text(const QString &key);
QString text(const QString &key, Language lang);
// The text without its keyboard mnemonic ("&Open…" -> "Open…", "打开(&O)…" -> "打开…"),
// for window and dialog titles.
QString plain(const QString &key);
// Whether the table itself holds a translation of the key in that language.
bool has(const QString &key, Language lang);
// A panel text: string-resource keys are translated, anything else (an option
// value such as "2") is shown as it stands.
QString label(const QString &keyOrText);

// The apparatus name of a type id in the current language.
QString typeName(int typeId, const char *fallback = nullptr);
bool hasTypeName(int typeId, Language lang);

// The keys asked for since clearMissing() that had no text in the language asked for.
QStringList missing();
void clearMissing();

} // namespace Strings
