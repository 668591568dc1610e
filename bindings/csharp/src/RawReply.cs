using System;

namespace Tolvex
{
    internal static class RawReply
    {
        internal const int Bytes = 2048; // the library reads no more

        internal static string Text(string operation, Func<byte[], int> call)
        {
            var buffer = new byte[Bytes + 1];
            int code = call(buffer);
            string reply = Texts.FromBytes(buffer, 0, buffer.Length);
            if (code == 0) return reply;
            throw new TolvexException(operation, ResultInfo.Of(code)) { Reply = reply.Length > 0 ? reply : null };
        }
    }
}
