/// A temperature, kept in degrees Celsius.
public struct Temperature: Codable, Hashable, Sendable {
    public var celsius: Double

    public init(celsius: Double) {
        self.celsius = celsius
    }

    public var fahrenheit: Double { celsius * 9 / 5 + 32 }
    public var formatted: String { "\(Int(celsius.rounded())) °C" }
}
