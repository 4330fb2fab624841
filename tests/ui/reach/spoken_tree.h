// A program as a screen reader outside of it gets it: over the message bus.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <vector>

namespace brovanta::test {

/// A part of a program: a window, a control, a row.
class SpokenPart {
 public:
  SpokenPart(QDBusConnection bus, QString service, QString path)
      : bus_(std::move(bus)), service_(std::move(service)), path_(std::move(path)) {}

  [[nodiscard]] QString Name() const;
  [[nodiscard]] QString Description() const;
  /// "push button", "tree item", ...
  [[nodiscard]] QString Role() const;
  [[nodiscard]] bool IsShown() const;
  /// What stands in a field; empty for what holds no text.
  [[nodiscard]] QString Contents() const;
  /// Whether another part is its label.
  [[nodiscard]] bool HasLabel() const;
  [[nodiscard]] std::vector<SpokenPart> Children() const;
  [[nodiscard]] SpokenPart Parent() const;
  /// The part with this number in the same program.
  [[nodiscard]] SpokenPart Numbered(quint32 number) const;

  /// Does what a press does. Does not wait: a button that opens a dialog answers when that closes.
  void Press() const;

 private:
  [[nodiscard]] QVariant Property(const char* name) const;
  [[nodiscard]] QVariant Ask(const char* interface, const char* method,
                             const QVariantList& arguments = {}) const;

  QDBusConnection bus_;
  QString service_;
  QString path_;
};

/// The programs on the bus, which screen readers begin with.
[[nodiscard]] SpokenPart Desktop(const QDBusConnection& bus);

/// All that is shown of a part, itself first.
[[nodiscard]] std::vector<SpokenPart> AllShown(const SpokenPart& part);

/// The controls without a name among the parts, and the fields that have neither a label nor a name
/// other than what stands in them. The list that a field drops down is called as the field is.
[[nodiscard]] QStringList NamelessParts(const std::vector<SpokenPart>& parts);

}  // namespace brovanta::test
