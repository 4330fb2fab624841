#include "tests/support/loopback_shops.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "tests/search/agents.h"

namespace brovanta::test {
namespace {

/// "<TAG>value</TAG>", nothing for what is missing.
void Append(std::string& text, const std::string& tag, const std::optional<std::string>& value) {
  if (value) text.append("<" + tag + ">").append(*value).append("</" + tag + ">\n");
}

std::string Block(const WebAgent& agent) {
  std::string text = "<WebAgent><SiteId>" + std::to_string(agent.SiteId) + "</SiteId>\n";
  const std::pair<const char*, const std::optional<std::string>&> fields[] = {
      {"SiteType", agent.SiteType},       {"SiteName", agent.SiteName},
      {"SiteAddress", agent.SiteAddress}, {"FormatString", agent.FormatString},
      {"EndHeader", agent.EndHeader},     {"StartResult", agent.StartResult},
      {"EndResult", agent.EndResult},     {"StartItem", agent.StartItem},
      {"EndItem", agent.EndItem},         {"StartText", agent.StartText},
      {"EndText", agent.EndText},         {"StartURL", agent.StartURL},
      {"EndURL", agent.EndURL},           {"StartPrice", agent.StartPrice},
      {"EndPrice", agent.EndPrice},       {"StartPromo", agent.StartPromo},
      {"EndPromo", agent.EndPromo}};
  for (const auto& [tag, value] : fields) Append(text, tag, value);
  return text + "</WebAgent>\n";
}

std::string PageOf(std::int32_t site) { return std::string("/").append(std::to_string(site)); }

}  // namespace

LoopbackShops::LoopbackShops() {
  server_ = std::make_unique<LoopbackServer>(
      [this](LoopbackPeer& peer, const std::string& request) { Answer(peer, request); });
}

LoopbackShops::~LoopbackShops() {
  Release();
  server_.reset();  // its threads use the rest
}

void LoopbackShops::Answer(LoopbackPeer& peer, const std::string& request) {
  std::string page = RequestedObject(request);
  page.resize(std::min(page.size(), page.find('?')));
  std::unique_lock lock(mutex_);
  ++connected_;
  bool gone = false;
  while (held_.count(page) != 0 && !gone) {
    lock.unlock();
    gone = peer.WaitUntilClosed(std::chrono::milliseconds(10));
    lock.lock();
  }
  if (const auto answer = pages_.find(page); answer != pages_.end() && !gone) {
    const std::string reply = HttpReply("200 OK", answer->second);
    lock.unlock();
    peer.Send(reply);
    lock.lock();
  }
  --connected_;
  changed_.notify_all();
}

void LoopbackShops::AddShop(std::int32_t site, const std::string& page) {
  AddShop(site);
  const std::lock_guard lock(mutex_);
  pages_[PageOf(site)] = page;
}

void LoopbackShops::AddHeldShop(std::int32_t site, const std::string& page) {
  AddShop(site);
  const std::lock_guard lock(mutex_);
  held_.insert(PageOf(site));
  if (!page.empty()) pages_[PageOf(site)] = page;
}

void LoopbackShops::Release() {
  const std::lock_guard lock(mutex_);
  held_.clear();
  changed_.notify_all();
}

WebAgent LoopbackShops::AgentFor(std::int32_t site) const {
  WebAgent agent = PlainAgent(site);
  agent.FormatString = server_->Url(PageOf(site)) + "?q= KEYWORD ";
  return agent;
}

void LoopbackShops::WriteConfiguration(const TempFolder& folder) const {
  std::string text;
  for (const WebAgentType& category : categories_) {
    text += "<AgentType><TypeId>" + std::to_string(category.TypeId) + "</TypeId><TypeName>" +
            category.TypeName + "</TypeName></AgentType>\n";
  }
  for (const WebAgent& agent : agents_) text += Block(agent);
  folder.WriteText("webspider.xml", text);
}

std::vector<std::string> LoopbackShops::Objects() const {
  std::vector<std::string> objects;
  for (const std::string& request : server_->requests()) {
    objects.push_back(RequestedObject(request));
  }
  return objects;
}

bool LoopbackShops::IsQuiet() {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, std::chrono::seconds(30), [this] { return connected_ == 0; });
}

}  // namespace brovanta::test
