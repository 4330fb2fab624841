// Shows one result of a web search in full.
#pragma once

#include <QString>
#include <memory>

#include "ui/base/modal_dialog.h"

namespace Ui {
class SearchResultForm;
}

namespace brovanta {

/// What the viewer shows, each text as it stands.
struct ShownResult {
  QString search_text;
  QString title;
  QString description;
  QString url;
  QString web_site;
  QString price;  ///< as it is to be read
};

/// Ends with kDeleteResult when the user asks for the result to be deleted, which is up to the
/// caller, and with kCloseResult however else it is closed.
class SearchResultViewer : public ModalDialog {
  Q_OBJECT

 public:
  static constexpr int kCloseResult = 0;
  static constexpr int kDeleteResult = 1;

  SearchResultViewer(const ShownResult& result, QWidget* parent);
  ~SearchResultViewer() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void SetUpTexts(const ShownResult& result);

  QString url_;
  std::unique_ptr<Ui::SearchResultForm> form_;
};

}  // namespace brovanta
