// The shops of a running search, each with what it is doing.
#pragma once

#include <cstdint>

#include "ui/base/row_tree.h"

namespace brovanta {

class AgentDelegate;

/// A row for each agent, the latest on top: its name on the left, its state in words on the right.
/// Both columns are at least 100 wide; what the screen has more goes to the name, or to a state
/// that needs it.
class AgentList : public RowTree {
  Q_OBJECT

 public:
  explicit AgentList(QWidget* parent = nullptr);

  /// Puts a row with the agent's name and no state yet to the top. A name of several lines becomes
  /// one line.
  void AddAgent(std::int32_t id, const QString& name);

  /// Says in the agent's row what it is doing; an agent without a row is left alone. Of two with
  /// one id the row nearer to the top is meant.
  void SetState(std::int32_t id, const QString& state);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QTreeWidgetItem* RowOf(std::int32_t id) const;

  AgentDelegate* delegate_;
};

}  // namespace brovanta
