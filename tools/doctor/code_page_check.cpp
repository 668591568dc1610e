#include "doctor/code_page_check.h"

#include <algorithm>

#include "logs/utf8.h"

namespace tolvex::ctl {
namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";
constexpr unsigned kFirstLead = 0x80;
constexpr unsigned kLastByte = 0xFF;
constexpr unsigned kFirstTrail = 0x40;

struct Sample {
  const char* language;
  const char* text;
};

constexpr Sample kSamples[] = {
    {"Western European", u8"ÄÖÜäöüßÀÉÈÊÇéèêçàñÑåøæ€£"},
    {"Central European", u8"ĄĘŁŃŚŹŻąęłńśźżČŘŠŽčřšžőű€"},
    {"Cyrillic", u8"АБВГДЖЗИЙЛФЦЧШЩЫЭЮЯабвгджзя№€"},
    {"Greek", u8"ΑΒΓΔΘΛΞΠΣΦΨΩαβγδάέήίόύώ€"},
    {"Turkish", u8"ÇĞİÖŞÜçğıöşü€"},
    {"Hebrew", u8"אבגדהוזחטיכלמנסעפצקרשת₪"},
    {"Arabic", u8"ابتثجحخدذرزسشصضطظعغفقكلمنهوي"},
    {"Thai", u8"กขคงจฉชซญดตถทนบปผฝพฟภมยรลวสหอฮ฿"},
    {"Chinese", u8"商品名称单价数量合计元收银找零谢谢惠顾"},
    {"Japanese", u8"商品名単価数量合計円レジありがとうございました"},
    {"Korean", u8"상품명단가수량합계원영수증감사합니다"},
};

std::vector<std::string> charactersIn(std::string_view text) {
  std::vector<std::string> characters;
  while (!text.empty()) {
    const std::size_t size = std::max<std::size_t>(1, utf8CharacterSize(text));
    characters.emplace_back(text.substr(0, size));
    text.remove_prefix(size);
  }
  return characters;
}

// The one character that the bytes stand for; empty when they stand for none or for several.
std::string characterOf(Conversion convert, const char* bytes) {
  std::string text = convert(bytes);
  if (text.empty() || text == kReplacement || utf8CharacterSize(text) != text.size()) return "";
  return text;
}

bool isAll(Conversion convert) {
  const std::string euroAndOmega = u8"€Ω";
  return convert(euroAndOmega.c_str()) == euroAndOmega;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

}  // namespace

std::optional<std::set<std::string>> charactersOf(Conversion convert) {
  if (isAll(convert)) return std::nullopt;
  std::set<std::string> characters;
  for (unsigned lead = kFirstLead; lead <= kLastByte; ++lead) {
    char bytes[3] = {static_cast<char>(lead), '\0', '\0'};
    const std::string single = characterOf(convert, bytes);
    if (!single.empty()) {
      characters.insert(single);
      continue;
    }
    for (unsigned trail = kFirstTrail; trail <= kLastByte; ++trail) {
      bytes[1] = static_cast<char>(trail);
      const std::string pair = characterOf(convert, bytes);
      if (!pair.empty()) characters.insert(pair);
    }
  }
  return characters;
}

std::string lostCharacters(std::string_view text, const std::set<std::string>& characters) {
  std::string lost;
  for (const std::string& character : charactersIn(text)) {
    const bool there = character.size() == 1 || characters.count(character) != 0;
    if (!there && lost.find(character) == std::string::npos) lost += character;
  }
  return lost;
}

std::vector<Finding> checkCodePage(const std::string& name, Conversion convert,
                                   const std::string& advice) {
  const std::string what = "texts are in code page " + name;
  const auto characters = charactersOf(convert);
  if (!characters) return {fine(what + ": every script goes through to the service")};
  std::vector<std::string> whole;
  std::vector<std::string> partial;
  std::vector<std::string> missing;
  for (const Sample& sample : kSamples) {
    const std::string lost = lostCharacters(sample.text, *characters);
    if (lost.empty()) {
      whole.emplace_back(sample.language);
    } else if (charactersIn(lost).size() * 2 <= charactersIn(sample.text).size()) {
      std::string text = what;
      partial.push_back(
          text.append(", which lacks ").append(lost).append(" of ").append(sample.language));
    } else {
      missing.emplace_back(sample.language);
    }
  }
  std::vector<Finding> findings;
  if (whole.empty()) {
    findings.push_back(info(what + ", which has none of the scripts tried whole"));
  } else {
    findings.push_back(fine(what + ": these go through whole: " + joined(whole)));
  }
  // A code page that has one script whole is of that one, and owes nothing to the others.
  for (const std::string& text : partial) {
    findings.push_back(whole.empty() ? warning(text, advice) : info(text, advice));
  }
  if (!missing.empty()) {
    findings.push_back(info("code page " + name + " does not have: " + joined(missing), advice));
  }
  return findings;
}

}  // namespace tolvex::ctl
