/// A speed, kept in metres per second.
public struct Speed: Codable, Hashable, Sendable {
    public var metresPerSecond: Double

    public init(metresPerSecond: Double) {
        self.metresPerSecond = metresPerSecond
    }

    public var kilometresPerHour: Double { metresPerSecond * 3.6 }
}
