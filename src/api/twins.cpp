// The second names of the exports that have one. The twins of the stubs stand with the stubs.
#include "api/exports.h"

int read_baseinfo_stdcall(char* record) { return read_baseinfo(record); }
int read_standard_stdcall(char* record) { return read_standard(record); }
int send_zero_stdcall(void) { return send_zero(); }
int send_tare_stdcall(char* reply) { return send_tare(reply); }
int send_pre_tare_stdcall(char* text) { return send_pre_tare(text); }
int set_tare_bykey_stdcall(char* reply) { return set_tare_bykey(reply); }
int clear_tare_stdcall(char* reply) { return clear_tare(reply); }
int SetServerIpForRemoteAccess_stdcall(const char* ip) { return SetServerIpForRemoteAccess(ip); }

int BeginPrint_stdcall(int jobType) { return BeginPrint(jobType); }
int PrintText_stdcall(const char* text, unsigned int fontSize) { return PrintText(text, fontSize); }
int PrintTextByPaperWidth_stdcall(const char* text, unsigned int fontSize, unsigned int width) {
  return PrintTextByPaperWidth(text, fontSize, width);
}
int PrintBitmapFile_stdcall(const char* path, int angle) { return PrintBitmapFile(path, angle); }
int printBlanks_stdcall(unsigned int distance) { return printBlanks(distance); }
int cutPaper_stdcall(void) { return cutPaper(); }
int feedPaper_stdcall(void) { return feedPaper(); }
int SetDefaultPaperWidth_stdcall(unsigned int width) { return SetDefaultPaperWidth(width); }
int GetPrinterList_stdcall(char* buffer, unsigned int size) { return GetPrinterList(buffer, size); }
int GetPrinterStatus_stdcall(unsigned int printerType) { return GetPrinterStatus(printerType); }
int OpenCashDrawerEx_stdcall(void) { return OpenCashDrawerEx(); }
