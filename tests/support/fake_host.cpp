#include "fake_host.h"

#include <txCommon/internal/platform.h>

#include <cstdlib>
#include <cstring>

void FakeHost::reset() {
  errorPending = 0;
  failAllocateAfter = -1;
  codePage = 1252;
  settings.clear();
  ensureAnswer = 1;
  evaluateResult = 0.0;
  canonicalizeResult = 0;
  canonicalizeText.clear();
  reports.clear();
  asserts.clear();
  queried.clear();
  ensureCalls.clear();
  evaluated.clear();
  allocateSizes.clear();
  allocateCalls = releaseCalls = codePageCalls = lowerCalls = upperCalls = nextTempCalls = 0;
  setTempBufLen(131040);
}

std::vector<int> FakeHost::codes() const {
  std::vector<int> out;
  for (const Report& r : reports) out.push_back(r.code);
  return out;
}

int FakeHost::ErrorPending() { return errorPending; }

void FakeHost::ReportErrorArgs(int code, const vstring& first, const vstring& second) {
  reports.push_back({code, first.optr(), second.optr()});
}

void FakeHost::ReportError(int code) { reports.push_back({code, "", ""}); }

int FakeHost::TempBufLen() { return tempLen; }
char* FakeHost::TempBuf() { return tempBuf_.data(); }

int FakeHost::EnsureTempBuf(int size, int limit) {
  ensureCalls.emplace_back(size, limit);
  return ensureAnswer;
}

vstring* FakeHost::NextTempString() {
  ++nextTempCalls;
  ringPos_ = (ringPos_ + 1) % kRing;
  return &ring_[ringPos_];
}

void FakeHost::AssertFailed(const char* sourceFile, int line) {
  asserts.emplace_back(sourceFile != nullptr ? sourceFile : "", line);
}

void* FakeHost::Allocate(int size) {
  ++allocateCalls;
  allocateSizes.push_back(size);
  if (failAllocateAfter == 0) errorPending = 1;
  if (failAllocateAfter >= 0) --failAllocateAfter;
  return std::malloc(static_cast<std::size_t>(size));
}

void FakeHost::Release(void* block) {
  ++releaseCalls;
  std::free(block);
}

vstring FakeHost::QuerySetting(const char* label) {
  queried.emplace_back(label);
  auto it = settings.find(label);
  return it == settings.end() ? vstring() : vstring(it->second.c_str());
}

double FakeHost::EvaluateExpression(vstring& expression, int* status) {
  evaluated.emplace_back(expression.optr());
  (void)status;
  return evaluateResult;
}

int FakeHost::GetCodePage() {
  ++codePageCalls;
  return codePage;
}

char* FakeHost::LowerBuffer(char* text) {
  ++lowerCalls;
  return txc::platform::CharLowerA(text);
}

char* FakeHost::UpperBuffer(char* text) {
  ++upperCalls;
  return txc::platform::CharUpperA(text);
}

int FakeHost::CanonicalizePath(char* buffer, const char* path) {
  (void)path;
  if (canonicalizeResult != 0) std::strcpy(buffer, canonicalizeText.c_str());
  return canonicalizeResult;
}

void FakeHost::setTempBufLen(int n) {
  tempLen = n;
  tempBuf_.assign(static_cast<std::size_t>(n) + 8, '\0');
}
