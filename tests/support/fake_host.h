// A programmable host for tests: it records every report and answers each
// slot as the test sets it up. One instance is registered for the whole life
// of the host test executable; call reset() at the start of a test.
#pragma once

#include <txCommon/txCommon.h>

#include <map>
#include <string>
#include <vector>

class FakeHost : public ITXCommonCallback {
public:
  struct Report {
    int code;
    std::string first;
    std::string second;
    bool operator==(const Report&) const = default;
  };

  // ---- what the host answers (tests set these) ----
  int errorPending = 0;
  // Turned on after this many further Allocate calls (-1: never).
  int failAllocateAfter = -1;
  int codePage = 1252;
  std::map<std::string, std::string> settings;
  int ensureAnswer = 1;          // EnsureTempBuf's result
  double evaluateResult = 0.0;
  int canonicalizeResult = 0;
  std::string canonicalizeText;  // written to the buffer when result != 0

  // ---- what the host saw ----
  std::vector<Report> reports;
  std::vector<std::pair<std::string, int>> asserts;
  std::vector<std::string> queried;
  std::vector<std::pair<int, int>> ensureCalls;
  std::vector<std::string> evaluated;
  std::vector<int> allocateSizes;
  int allocateCalls = 0;
  int releaseCalls = 0;
  int codePageCalls = 0;
  int lowerCalls = 0;
  int upperCalls = 0;
  int nextTempCalls = 0;

  // Clears every record and answer back to the defaults above.
  void reset();
  std::vector<int> codes() const;

  int ErrorPending() override;
  void ReservedSlot1() override {}
  void ReportErrorArgs(int code, const vstring& first, const vstring& second) override;
  void ReportError(int code) override;
  int TempBufLen() override;
  char* TempBuf() override;
  int EnsureTempBuf(int size, int limit) override;
  vstring* NextTempString() override;
  void AssertFailed(const char* sourceFile, int line) override;
  void* Allocate(int size) override;
  void Release(void* block) override;
  void ReservedSlot11() override {}
  vstring QuerySetting(const char* label) override;
  double EvaluateExpression(vstring& expression, int* status) override;
  int GetCodePage() override;
  char* LowerBuffer(char* text) override;
  char* UpperBuffer(char* text) override;
  void ReservedSlot17() override {}
  void ReservedSlot18() override {}
  void ReservedSlot19() override {}
  void ReservedSlot20() override {}
  int CanonicalizePath(char* buffer, const char* path) override;

  // The scratch buffer the host hands out; tests may shrink it (bytes beyond
  // tempLen + 8 are not addressable: the buffer is exactly that size).
  void setTempBufLen(int n);
  int tempLen = 131040;

private:
  std::vector<char> tempBuf_ = std::vector<char>(131040 + 8);
  static constexpr int kRing = 128;
  vstring ring_[kRing];
  int ringPos_ = 0;
};

// The host registered by the host test executable's main().
FakeHost& fakeHost();
