#include "agent/reports.h"
#include "util/json_writer.h"

namespace brovanta::agent_tool {
namespace {

void Texts(JsonWriter& json, const char* key, const std::vector<std::string>& texts) {
  json.Key(key).BeginArray();
  for (const std::string& text : texts) json.Text(text);
  json.EndArray();
}

void OptionalText(JsonWriter& json, const char* key, const std::optional<std::string>& text) {
  json.Key(key);
  if (text) {
    json.Text(*text);
  } else {
    json.Null();
  }
}

void Agent(JsonWriter& json, const WebAgent& agent) {
  json.Key("agent").BeginObject();
  json.Key("number").Number(agent.SiteId);
  OptionalText(json, "name", agent.SiteName);
  json.EndObject();
}

void Block(JsonWriter& json, const BlockReport& block) {
  json.BeginObject();
  json.Key("kind").Text(block.kind == BlockKind::kCategory ? "category" : "agent");
  json.Key("byte").Number(block.start).Key("line").Number(block.line);
  json.Key("closed").Bool(block.closed).Key("taken").Bool(block.taken);
  json.Key("number").Number(block.number);
  OptionalText(json, "name", block.name);
  json.Key("missing").BeginArray();
  for (const MissingField& field : block.missing) {
    json.BeginObject();
    json.Key("field").Text(field.field).Key("required").Bool(field.required);
    json.Key("why").Text(field.why).EndObject();
  }
  json.EndArray();
  Texts(json, "notes", block.notes);
  json.EndObject();
}

const char* StateName(Sighting::State state) {
  switch (state) {
    case Sighting::State::kFound:
      return "found";
    case Sighting::State::kNotFound:
      return "not found";
    case Sighting::State::kNotLookedFor:
      return "not looked for";
    case Sighting::State::kNotDefined:
      return "not defined";
  }
  return "";
}

void Marker(JsonWriter& json, const Sighting& sighting, const Lines& lines) {
  json.BeginObject();
  json.Key("marker").Text(sighting.marker).Key("state").Text(StateName(sighting.state));
  if (sighting.state == Sighting::State::kFound) {
    json.Key("byte").Number(sighting.match.start);
    json.Key("line").Number(lines.LineOf(sighting.match.start));
    json.Key("length").Number(sighting.match.length);
  }
  json.EndObject();
}

void Item(JsonWriter& json, const TriedBlock& block) {
  json.Key("item");
  if (!block.item) {
    json.Null();
    return;
  }
  json.BeginObject();
  OptionalText(json, "title", block.item->Title);
  OptionalText(json, "text", block.item->Text);
  OptionalText(json, "link", block.item->Url);
  json.Key("price").Number(block.item->Price);
  json.Key("kept").Bool(block.reasons.empty());
  json.Key("dropped_for").BeginArray();
  for (const DropReason reason : block.reasons) {
    json.Text(reason == DropReason::kNoWord ? "no word" : "no price");
  }
  json.EndArray().EndObject();
}

void Result(JsonWriter& json, const TriedBlock& block, const Lines& lines) {
  json.BeginObject();
  json.Key("byte").Number(block.start).Key("line").Number(lines.LineOf(block.start));
  json.Key("length").Number(block.length);
  json.Key("markers").BeginArray();
  for (const Sighting& sighting : block.markers) Marker(json, sighting, lines);
  json.EndArray();
  Item(json, block);
  json.EndObject();
}

const char* EndName(PageEnd end) {
  switch (end) {
    case PageEnd::kNotYet:
      return "not yet";
    case PageEnd::kNoHeader:
      return "no header";
    case PageEnd::kNoStart:
      return "no further result";
    case PageEnd::kNoEnd:
      return "no end of the result";
    case PageEnd::kShortBlock:
      return "short result";
    case PageEnd::kNoTitle:
      return "no title";
    case PageEnd::kNoUrl:
      return "no link";
    case PageEnd::kMarkersMissing:
      return "markers missing";
  }
  return "";
}

void End(JsonWriter& json, const Trial& trial, const Lines& lines) {
  json.Key("end").BeginObject();
  json.Key("why").Text(EndName(trial.end)).Key("marker").Text(trial.end_marker);
  json.Key("marker_found").Bool(!trial.end_marker_missing);
  json.Key("byte").Number(trial.end_from).Key("line").Number(lines.LineOf(trial.end_from));
  json.EndObject();
}

}  // namespace

std::string CheckAsJson(const FileReport& report, const std::string& path) {
  JsonWriter json;
  json.BeginObject();
  json.Key("file").Text(path).Key("result").Number(std::int32_t{report.result});
  json.Key("good").Bool(report.IsGood());
  json.Key("categories").Number(report.categories).Key("agents").Number(report.agents);
  json.Key("blocks").BeginArray();
  for (const BlockReport& block : report.blocks) Block(json, block);
  json.EndArray();
  Texts(json, "notes", report.notes);
  json.EndObject();
  return json.text() + "\n";
}

std::string TrialAsJson(const Trial& trial, const TrialSubject& subject) {
  const Lines lines(subject.page.text);
  JsonWriter json;
  json.BeginObject();
  json.Key("page").BeginObject();
  json.Key("file").Text(subject.page_path);
  json.Key("stored_bytes").Number(subject.page.stored_bytes);
  json.Key("bytes").Number(subject.page.text.size());
  json.Key("cut").Bool(subject.page.cut).Key("zero_bytes").Bool(subject.page.zeros).EndObject();
  Agent(json, subject.agent);
  OptionalText(json, "words", subject.words);
  json.Key("header");
  Marker(json, trial.header, lines);
  json.Key("results").BeginArray();
  for (const TriedBlock& block : trial.blocks) Result(json, block, lines);
  json.EndArray();
  End(json, trial, lines);
  json.Key("items").Number(trial.items).Key("kept").Number(trial.kept);
  json.EndObject();
  return json.text() + "\n";
}

std::string AddressAsJson(const AddressReport& report, const WebAgent& agent,
                          const std::string& words) {
  JsonWriter json;
  json.BeginObject();
  Agent(json, agent);
  json.Key("words").Text(words).Key("status").Number(report.status);
  json.Key("address");
  if (report.status == 0) {
    json.Text(report.address);
  } else {
    json.Null();
  }
  json.Key("cut").Bool(report.cut).Key("downloadable").Bool(report.downloadable);
  json.EndObject();
  return json.text() + "\n";
}

}  // namespace brovanta::agent_tool
