#include "server/demo_result_page.h"

#include "server/agent_file.h"
#include "server/demo_page_frame.h"
#include "server/html.h"

namespace brovanta::server {
namespace {

// The markers stand beside the results that they read (below); both change together.
constexpr ResultMarkers kTableMarkers = {"<table class=\"results\">",
                                         "<tr*>",
                                         "</tr>",
                                         "<a href=\"*\">",
                                         "</a>",
                                         "<small>",
                                         "</small>",
                                         "<a href=\"",
                                         "\">",
                                         "<td class=\"price\">",
                                         "</td>",
                                         "",
                                         ""};
constexpr ResultMarkers kCardsMarkers = {"<!-- results -->",
                                         "<div class=\"card\">",
                                         "<!-- end of card -->",
                                         "<div class=\"name\">",
                                         "</div>",
                                         "<div class=\"stock\">",
                                         "</div>",
                                         "href=\"",
                                         "\"",
                                         "<div class=\"cost\">",
                                         "</div>",
                                         "",
                                         ""};
constexpr ResultMarkers kDefinitionsMarkers = {"<dl class=\"finds\">",
                                               "<div><dt>",
                                               "</dd></div>",
                                               "<a class=\"d?\" href=\"*\">",
                                               "</a>",
                                               "<dd>",
                                               "</dd>",
                                               "href=\"",
                                               "\"",
                                               "<dd class=\"pay\">",
                                               "</dd>",
                                               "",
                                               ""};
constexpr ResultMarkers kParagraphsMarkers = {"<!-- hits -->",
                                              "<p class=\"hit\">",
                                              "</p>",
                                              "<span class=\"title\">",
                                              "</span>",
                                              "<span class=\"stock\">",
                                              "</span>",
                                              "<a href=\"",
                                              "\"",
                                              "<em>",
                                              "</em>",
                                              "",
                                              ""};
constexpr ResultMarkers kListMarkers = {
    "<ol class=\"list\">", "<li*>", "</li>",    "<h2>",      "</h2>", "<span>", "</span>",
    "<a href=\"",          "\"",    "<strong>", "</strong>", "",      ""};
constexpr ResultMarkers kOffersMarkers = {"<main>",     "<article>",
                                          "</article>", "<h2>",
                                          "</h2>",      "<span class=\"stock\">",
                                          "</span>",    "<a class=\"go\" href=\"",
                                          "\"",         "<span class=\"*\">",
                                          "</span>",    "<ins>",
                                          "</ins>"};

std::string ItemPath(const DemoShop& shop, const Article& article) {
  return ShopPath(shop) + "item?no=" + std::to_string(article.number);
}

// The name with its maker in bold and its size kept on one line.
std::string DressedName(const Article& article) {
  const std::string escaped = Escaped(article.name.substr(article.maker.size()));
  const std::size_t blank = escaped.rfind(' ');
  return "<b>" + Escaped(article.maker) + "</b>" + escaped.substr(0, blank) + "&nbsp;" +
         escaped.substr(blank + 1);
}

// Every second row has a colour of its own.
std::string TableRow(const DemoShop& shop, const Article& article, bool odd) {
  return std::string("<tr class=\"") + (odd ? "odd" : "even") + "\"><td><a href=\"" +
         ItemPath(shop, article) + "\">" + DressedName(article) + "</a><br><small>" +
         StockOf(shop, article) + "</small></td><td class=\"price\">$" +
         PriceText(PriceIn(shop, article).ToPay()) + "</td></tr>\n";
}

std::string Card(const DemoShop& shop, const Article& article) {
  return "<div class=\"card\"><div class=\"text\"><div class=\"name\"><a href=\"item?no=" +
         std::to_string(article.number) + "\">" + Escaped(article.name) +
         "</a></div>\n<div class=\"stock\">" + StockOf(shop, article) +
         "</div></div>\n<div class=\"cost\">$ " + PriceText(PriceIn(shop, article).ToPay()) +
         "</div></div><!-- end of card -->\n";
}

std::string Definition(const DemoShop& shop, const Article& article) {
  return "<div><dt><a class=\"d" + std::to_string(static_cast<int>(article.department)) +
         "\" href=\"" + ItemPath(shop, article) + "&amp;from=finds\">\n  " + Escaped(article.name) +
         "</a></dt>\n<dd>" + StockOf(shop, article) + "</dd><dd class=\"pay\">USD&nbsp;" +
         PriceText(PriceIn(shop, article).ToPay()) + "</dd></div>\n";
}

std::string Paragraph(const DemoShop& shop, const Article& article) {
  return "<p class=\"hit\"><a href=\"?no=" + std::to_string(article.number) +
         "\"><span class=\"title\">" + Escaped(article.name) +
         "</span></a> <span class=\"stock\">" + StockOf(shop, article) + "</span><em>" +
         PriceText(PriceIn(shop, article).ToPay(), true) + " $</em></p>\n";
}

std::string ListEntryOf(const DemoShop& shop, const Article& article, const std::string& host) {
  return "<li id=\"a" + std::to_string(article.number) + "\"><a href=\"http://" + host +
         ItemPath(shop, article) + "\"><h2>" + Escaped(article.name) + "</h2></a><span>" +
         StockOf(shop, article) + "</span><strong>$" +
         PriceText(PriceIn(shop, article).ToPay(), true) + "</strong></li>\n";
}

std::string Offer(const DemoShop& shop, const Article& article) {
  const ShopPrice price = PriceIn(shop, article);
  const std::string regular = PriceText(price.regular);
  return "<article><h2>" + Escaped(article.name) + "</h2>\n<span class=\"" +
         (price.offer ? "was" : "now") + "\">$" + regular + "</span>" +
         (price.offer ? "<ins>now $" + PriceText(*price.offer) + "</ins>" : "") +
         "\n<span class=\"stock\">" + StockOf(shop, article) + "</span>\n<a class=\"go\" href=\"" +
         ItemPath(shop, article) + "\">See it</a></article>\n";
}

// The shop's whole range with what is often bought together: it makes the page longer than what a
// handheld reads, behind everything that was found.
std::string RangeIndex(const DemoShop& shop) {
  constexpr std::uint32_t kCompanions = 7;
  std::string index = "<h2 class=\"index\">Our whole range</h2>\n<ul class=\"index\">\n";
  for (const Article* article : FindInShop(shop, std::nullopt, "")) {
    index += "<li><a href=\"?no=" + std::to_string(article->number) + "\">" +
             Escaped(article->name) + "</a>, often bought together with ";
    const auto number = static_cast<std::uint32_t>(article->number);
    for (std::uint32_t i = 0; i < kCompanions; ++i) {
      const auto other = Chance(number, i) % static_cast<std::uint32_t>(Articles().size());
      const Article& companion = Articles()[other];
      index += (i > 0 ? ", " : "") + std::string("<a href=\"?no=") +
               std::to_string(companion.number) + "\">" + Escaped(companion.name) + "</a>";
    }
    index += "</li>\n";
  }
  return index + "</ul>\n";
}

std::string Results(const DemoShop& shop, const Findings& findings) {
  const auto each = [&findings](auto&& result) {
    std::string all;
    for (const Article* article : findings.articles) all += result(*article);
    return all;
  };
  const auto with_shop = [&shop](auto result) {
    return [&shop, result](const Article& article) { return result(shop, article); };
  };
  switch (shop.style) {
    case PageStyle::kTable: {
      bool odd = false;
      return "<table class=\"results\">\n" + each([&shop, &odd](const Article& article) {
               odd = !odd;
               return TableRow(shop, article, odd);
             }) +
             "</table>\n";
    }
    case PageStyle::kCards:
      return "<!-- results -->\n" + each(with_shop(Card));
    case PageStyle::kDefinitions:
      return "<dl class=\"finds\">\n" + each(with_shop(Definition)) + "</dl>\n";
    case PageStyle::kParagraphs:
      return "<!-- hits -->\n" + each(with_shop(Paragraph)) + RangeIndex(shop);
    case PageStyle::kList:
      return "<ol class=\"list\">\n" + each([&shop, &findings](const Article& article) {
               return ListEntryOf(shop, article, findings.host);
             }) +
             "</ol>\n";
    case PageStyle::kOffers:
      return each(with_shop(Offer));
  }
  return {};
}

std::string Heading(const DemoShop& shop, const Findings& findings) {
  const std::size_t count = findings.articles.size();
  const std::string place = findings.department
                                ? " in " + std::string(DepartmentName(*findings.department))
                                : std::string();
  std::string heading = "<h1>";
  heading += findings.words.empty() ? std::string("Everything") : Escaped(findings.words);
  heading += "</h1>\n<p class=\"count\">";
  heading += count == 0 ? std::string(shop.name) + " has nothing like it" + place + "."
                        : std::to_string(count) + (count == 1 ? " article" : " articles") + place;
  return heading + "</p>\n";
}

}  // namespace

const ResultMarkers& MarkersOf(PageStyle style) {
  switch (style) {
    case PageStyle::kTable:
      return kTableMarkers;
    case PageStyle::kCards:
      return kCardsMarkers;
    case PageStyle::kDefinitions:
      return kDefinitionsMarkers;
    case PageStyle::kParagraphs:
      return kParagraphsMarkers;
    case PageStyle::kList:
      return kListMarkers;
    case PageStyle::kOffers:
      return kOffersMarkers;
  }
  return kTableMarkers;
}

std::string SiteAddressOf(const DemoShop& shop) {
  std::string address = "http://" + std::string(kServerToken);
  switch (shop.style) {
    case PageStyle::kCards:
      return address + ShopPath(shop);
    case PageStyle::kParagraphs:
      return address + ShopPath(shop) + "search";
    case PageStyle::kTable:
    case PageStyle::kDefinitions:
    case PageStyle::kList:
    case PageStyle::kOffers:
      break;
  }
  return address;
}

std::string ResultPage(const DemoShop& shop, const Findings& findings) {
  const std::string title = findings.words.empty() ? "Everything" : findings.words;
  return ShopFrame(shop, {title, findings.department, findings.words},
                   Heading(shop, findings) + Results(shop, findings));
}

}  // namespace brovanta::server
