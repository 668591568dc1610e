namespace Tolvex
{
    /// <summary>
    /// What is done with a receipt beside printing it, and on which printer. Some types are the same to the library; what
    /// more they mean is the service's business.
    /// </summary>
    public enum JobType
    {
        /// <summary>Tickets: print.</summary>
        Ticket = 0,

        /// <summary>Labels: print.</summary>
        Label = 2,

        /// <summary>Tickets: print, then feed 13 mm.</summary>
        TicketFeed = 4,

        /// <summary>Tickets: print.</summary>
        TicketImage = 7,

        /// <summary>Tickets: print, then cut.</summary>
        TicketCut = 8,

        /// <summary>Tickets: print, then feed 13 mm.</summary>
        FpFeed = 104,

        /// <summary>Tickets: print, then cut.</summary>
        FpCut = 105,

        /// <summary>Labels: print.</summary>
        LabelImage = 204,

        /// <summary>Labels: print.</summary>
        LabelDot = 205,

        /// <summary>Labels: print, then feed 13 mm.</summary>
        LabelFeedAuto = 206,

        /// <summary>Tickets: print, then cut.</summary>
        FlpCut = 207,

        /// <summary>Labels: print, then feed 13 mm.</summary>
        LabelFeed = 208,

        /// <summary>The third printer: print.</summary>
        Third = 301,

        /// <summary>The third printer: print, then feed 13 mm.</summary>
        ThirdFeed = 304,

        /// <summary>The third printer: print, then cut.</summary>
        ThirdCut = 305
    }
}
