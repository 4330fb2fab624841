#include "tests/ui/reach/spoken_tree.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace brovanta::test {
namespace {

constexpr int kPatience = 20'000;  // milliseconds
constexpr char kAccessible[] = "org.a11y.atspi.Accessible";
constexpr char kText[] = "org.a11y.atspi.Text";
constexpr char kAction[] = "org.a11y.atspi.Action";
constexpr quint32 kShowing = 25;    // state
constexpr quint32 kLabelledBy = 2;  // relation
constexpr int kDeepest = 30;

/// What only holds others.
const QStringList kNameless = {QStringLiteral("frame"),     QStringLiteral("filler"),
                               QStringLiteral("panel"),     QStringLiteral("layered pane"),
                               QStringLiteral("separator"), QStringLiteral("scroll bar")};

const QString kComboBox = QStringLiteral("combo box");
const QString kList = QStringLiteral("list");
const QStringList kFields = {QStringLiteral("text"), QStringLiteral("entry"), kComboBox,
                             QStringLiteral("spin button")};

bool IsCalled(const SpokenPart& part, const QString& role) {
  const QString name = part.Name().trimmed();
  if (!kFields.contains(role)) {
    return !name.isEmpty() || (role == kList && part.Parent().Role() == kComboBox);
  }
  if (part.HasLabel()) return true;
  // The toolkit calls a combo box by what stands in it, whatever name it was given.
  return role != kComboBox && !name.isEmpty() && name != part.Contents().trimmed();
}

void AddShown(const SpokenPart& part, int depth, std::vector<SpokenPart>& parts) {
  if (depth > kDeepest || !part.IsShown()) return;
  parts.push_back(part);
  for (const SpokenPart& child : part.Children()) AddShown(child, depth + 1, parts);
}

}  // namespace

QVariant SpokenPart::Ask(const char* interface, const char* method,
                         const QVariantList& arguments) const {
  QDBusMessage call = QDBusMessage::createMethodCall(
      service_, path_, QString::fromLatin1(interface), QString::fromLatin1(method));
  call.setArguments(arguments);
  const QDBusMessage answer = bus_.call(call, QDBus::Block, kPatience);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
  return answer.arguments().constFirst();
}

QVariant SpokenPart::Property(const char* name) const {
  return Ask("org.freedesktop.DBus.Properties", "Get",
             {QString::fromLatin1(kAccessible), QString::fromLatin1(name)})
      .value<QDBusVariant>()
      .variant();
}

QString SpokenPart::Name() const { return Property("Name").toString(); }

QString SpokenPart::Description() const { return Property("Description").toString(); }

QString SpokenPart::Contents() const { return Ask(kText, "GetText", {0, -1}).toString(); }

QString SpokenPart::Role() const { return Ask(kAccessible, "GetRoleName").toString(); }

bool SpokenPart::IsShown() const {
  const auto states = qdbus_cast<QList<quint32>>(Ask(kAccessible, "GetState"));
  return !states.isEmpty() && (states.first() & (1U << kShowing)) != 0;
}

bool SpokenPart::HasLabel() const {
  const QVariant answer = Ask(kAccessible, "GetRelationSet");
  const auto relations = answer.value<QDBusArgument>();
  bool labelled = false;
  relations.beginArray();
  while (!relations.atEnd()) {
    quint32 kind = 0;
    relations.beginStructure();
    relations >> kind;
    relations.beginArray();
    while (!relations.atEnd()) {
      QString service;
      QDBusObjectPath path;
      relations.beginStructure();
      relations >> service >> path;
      relations.endStructure();
      const SpokenPart other(bus_, service, path.path());
      if (kind == kLabelledBy && !other.Name().trimmed().isEmpty()) labelled = true;
    }
    relations.endArray();
    relations.endStructure();
  }
  relations.endArray();
  return labelled;
}

std::vector<SpokenPart> SpokenPart::Children() const {
  std::vector<SpokenPart> children;
  const QVariant answer = Ask(kAccessible, "GetChildren");
  const auto list = answer.value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    QString service;
    QDBusObjectPath path;
    list.beginStructure();
    list >> service >> path;
    list.endStructure();
    children.emplace_back(bus_, service, path.path());
  }
  list.endArray();
  return children;
}

SpokenPart SpokenPart::Parent() const {
  const auto parent = Property("Parent").value<QDBusArgument>();
  QString service;
  QDBusObjectPath path;
  parent.beginStructure();
  parent >> service >> path;
  parent.endStructure();
  return {bus_, service, path.path()};
}

SpokenPart SpokenPart::Numbered(quint32 number) const {
  return {bus_, service_, QStringLiteral("/org/a11y/atspi/accessible/%1").arg(number)};
}

void SpokenPart::Press() const {
  QDBusMessage call = QDBusMessage::createMethodCall(service_, path_, QString::fromLatin1(kAction),
                                                     QStringLiteral("DoAction"));
  call.setArguments({0});
  bus_.send(call);
}

SpokenPart Desktop(const QDBusConnection& bus) {
  return {bus, QStringLiteral("org.a11y.atspi.Registry"),
          QStringLiteral("/org/a11y/atspi/accessible/root")};
}

std::vector<SpokenPart> AllShown(const SpokenPart& part) {
  std::vector<SpokenPart> parts;
  AddShown(part, 0, parts);
  return parts;
}

QStringList NamelessParts(const std::vector<SpokenPart>& parts) {
  QStringList nameless;
  for (const SpokenPart& part : parts) {
    const QString role = part.Role();
    if (kNameless.contains(role)) continue;
    if (!IsCalled(part, role)) nameless << role;
  }
  return nameless;
}

}  // namespace brovanta::test
