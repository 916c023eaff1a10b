// The host bridge: the one object through which the library reaches the
// program that loads it, and the missing-value constants.
//
// A host subclasses ITXCommonCallback and registers it once:
//
//   MyHost host;                 // must outlive every call into the library
//   txcommon_initialize(&host);  // sets dNA/NaMask, registers the host
//
// Without a registered host the library runs on a built-in road: per-thread
// temporaries and scratch buffer, the system allocator, and no error reports.
// The first registration stands for the life of the process.
#pragma once

#include <txCommon/export.h>

class vstring;

// The host's services, one virtual slot each, in a fixed table order that a
// host compiled elsewhere relies on. The reserved slots are never called.
class TXC_API ITXCommonCallback {
public:
  virtual int ErrorPending() = 0;
  virtual void ReservedSlot1() = 0;
  virtual void ReportErrorArgs(int code, const vstring& first, const vstring& second) = 0;
  virtual void ReportError(int code) = 0;
  virtual int TempBufLen() = 0;
  virtual char* TempBuf() = 0;
  virtual int EnsureTempBuf(int size, int limit) = 0;
  virtual vstring* NextTempString() = 0;
  virtual void AssertFailed(const char* sourceFile, int line) = 0;
  virtual void* Allocate(int size) = 0;
  virtual void Release(void* block) = 0;
  virtual void ReservedSlot11() = 0;
  virtual vstring QuerySetting(const char* label) = 0;
  virtual double EvaluateExpression(vstring& expression, int* status) = 0;
  virtual int GetCodePage() = 0;
  // Both case slots take either a zero-ended text, converted in place, or a
  // single byte passed by value in the pointer (a value below 0x100); in the
  // second form the converted byte comes back the same way.
  virtual char* LowerBuffer(char* text) = 0;
  virtual char* UpperBuffer(char* text) = 0;
  virtual void ReservedSlot17() = 0;
  virtual void ReservedSlot18() = 0;
  virtual void ReservedSlot19() = 0;
  virtual void ReservedSlot20() = 0;
  virtual int CanonicalizePath(char* buffer, const char* path) = 0;

  ITXCommonCallback() = default;
  ITXCommonCallback(const ITXCommonCallback&) = default;
  ITXCommonCallback(ITXCommonCallback&&) = default;
  ITXCommonCallback& operator=(const ITXCommonCallback&) { return *this; }
  ITXCommonCallback& operator=(ITXCommonCallback&&) { return *this; }
  // No virtual destructor: the library never destroys a host; the host owns it.
};

// Sets dNA and NaMask, and registers `host` unless one is registered already.
// A null host leaves the library on the built-in road (a later call may still
// register one).
TXC_API void txcommon_initialize(ITXCommonCallback* host);

// The missing value: bit pattern 0xFFF8000000000000 after txcommon_initialize,
// 0.0 before it.
extern TXC_API double dNA;
// 0x7FF00000 after txcommon_initialize, 0 before it.
extern TXC_API std::uint32_t NaMask;

// 1 when the high word of `value`, masked with NaMask, equals NaMask: true of
// every NaN and both infinities once initialised, of every value before.
TXC_API int ISNA(const double& value);

// The scratch buffer of the host, or of this thread, and its reported size
// (131040 on the built-in road; the block has 8 more bytes).
TXC_API char* _psTempBuf2(void);
TXC_API txlong _psTempBufLen2(void);
